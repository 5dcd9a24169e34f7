// SPDX-License-Identifier: MIT
#include "platform/screen/ClipboardHolder.hpp"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <climits>
#include <csignal>
#include <cstdio>
#include <exception>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include "platform/drawing/PixelBuffer.hpp"
#include "platform/system/Files.hpp"

namespace mobrel {

namespace {

constexpr std::chrono::milliseconds kLongestWait{2000};
constexpr int kFirstFreeDescriptor = kHolderAnswerDescriptor + 1;

[[noreturn]] void throwSystemError(int errnoValue, const char* what) {
    throw std::system_error(errnoValue, std::generic_category(), what);
}

// The numbers below are the holder's: a descriptor that has one of them would be overwritten in its start.
FileDescriptor aboveHoldersOwn(FileDescriptor descriptor) {
    FileDescriptor copy(::fcntl(descriptor.get(), F_DUPFD_CLOEXEC, kFirstFreeDescriptor));
    if (!copy.isOpen()) throwSystemError(errno, "no descriptor");
    return copy;
}

void writeAll(int file, std::span<iovec> pieces) {
    while (!pieces.empty()) {
        const ssize_t written = ::writev(file, pieces.data(), static_cast<int>(pieces.size()));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) throwSystemError(errno, "no memory for the copy");
        auto rest = static_cast<std::size_t>(written);
        while (!pieces.empty() && rest >= pieces.front().iov_len) {
            rest -= pieces.front().iov_len;
            pieces = pieces.subspan(1);
        }
        if (rest == 0) continue;
        pieces.front().iov_base = static_cast<char*>(pieces.front().iov_base) + rest;
        pieces.front().iov_len -= rest;
    }
}

void writePicture(int file, const PictureView& picture) {
    HeldPictureHeader header;
    header.width = picture.width;
    header.height = picture.height;
    std::array<iovec, IOV_MAX> pieces;
    pieces[0] = {&header, sizeof header};
    std::size_t count = 1;
    for (int y = 0; y < picture.height; ++y) {
        auto* const line = const_cast<std::uint8_t*>(picture.line(y));  // writev(2) only reads it
        pieces[count++] = {line, static_cast<std::size_t>(picture.width) * 4};
        if (count < pieces.size() && y < picture.height - 1) continue;
        writeAll(file, std::span(pieces).first(count));
        count = 0;
    }
}

FileDescriptor sealedCopyOf(const PictureView& picture) {
    FileDescriptor file(::memfd_create("mobrel-clipboard", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!file.isOpen()) throwSystemError(errno, "no memory file");
    writePicture(file.get(), picture);
    if (::fcntl(file.get(), F_ADD_SEALS, kHeldPictureSeals) != 0) {
        throwSystemError(errno, "the memory file cannot be sealed");
    }
    return aboveHoldersOwn(std::move(file));
}

struct Pipe {
    FileDescriptor reader;
    FileDescriptor writer;
};

Pipe makePipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throwSystemError(errno, "no pipe");
    Pipe made{FileDescriptor(ends[0]), FileDescriptor(ends[1])};
    made.writer = aboveHoldersOwn(std::move(made.writer));
    return made;
}

std::string holderProgram() {
    std::string program = helperFile("mobrel-clipboard");
    if (program.empty()) throw std::runtime_error("the program mobrel-clipboard is missing");
    return program;
}

/// How the holder starts: with the two descriptors and nothing else of this process, as a session of its
/// own, so that whoever waits for our output or ends our session does not meet it.
class HolderStart {
 public:
    HolderStart(int picture, int answer) {
        if (::posix_spawn_file_actions_init(&m_files) != 0) throw std::bad_alloc();
        if (::posix_spawnattr_init(&m_attributes) != 0) {
            ::posix_spawn_file_actions_destroy(&m_files);
            throw std::bad_alloc();
        }
        for (int stream = 0; stream <= STDERR_FILENO; ++stream) {
            ::posix_spawn_file_actions_addopen(&m_files, stream, "/dev/null", O_RDWR, 0);
        }
        ::posix_spawn_file_actions_adddup2(&m_files, picture, kHeldPictureDescriptor);
        ::posix_spawn_file_actions_adddup2(&m_files, answer, kHolderAnswerDescriptor);
        ::posix_spawn_file_actions_addclosefrom_np(&m_files, kFirstFreeDescriptor);

        sigset_t signals;
        sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&m_attributes, &signals);
        sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&m_attributes, &signals);
        ::posix_spawnattr_setflags(&m_attributes,
                                   POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSID);
    }
    HolderStart(const HolderStart&) = delete;
    HolderStart& operator=(const HolderStart&) = delete;
    ~HolderStart() {
        ::posix_spawnattr_destroy(&m_attributes);
        ::posix_spawn_file_actions_destroy(&m_files);
    }

    pid_t run(std::string program) const {
        const std::array<char*, 2> arguments = {program.data(), nullptr};
        pid_t process = 0;
        const int error =
            ::posix_spawn(&process, program.c_str(), &m_files, &m_attributes, arguments.data(), environ);
        if (error != 0) throwSystemError(error, program.c_str());
        return process;
    }

 private:
    posix_spawn_file_actions_t m_files{};
    posix_spawnattr_t m_attributes{};
};

std::optional<char> answerWithin(int reader, std::chrono::milliseconds limit) {
    using std::chrono::steady_clock;
    const auto deadline = steady_clock::now() + limit;
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - steady_clock::now());
        pollfd waiting = {reader, POLLIN, 0};
        const int ready = ::poll(&waiting, 1, static_cast<int>(std::max(left.count(), 0L)));
        if (ready < 0 && errno == EINTR) continue;
        if (ready <= 0) return std::nullopt;
        char answer = 0;
        if (::read(reader, &answer, 1) != 1) return std::nullopt;
        return answer;
    }
}

// The started process forks the holder proper at once and ends; one that hangs before that is ended. It is
// looked at first: where the caller ignores SIGCHLD the number can already be somebody else's.
void reap(pid_t process) {
    pid_t ended = 0;
    do {
        ended = ::waitpid(process, nullptr, WNOHANG);
    } while (ended < 0 && errno == EINTR);
    if (ended != 0) return;
    ::kill(process, SIGKILL);
    while (::waitpid(process, nullptr, 0) < 0 && errno == EINTR) continue;
}

bool hold(const PictureView& picture) {
    const std::string program = holderProgram();
    const FileDescriptor copy = sealedCopyOf(picture);
    Pipe pipe = makePipe();
    const pid_t process = HolderStart(copy.get(), pipe.writer.get()).run(program);
    pipe.writer.reset();
    const std::optional<char> answer = answerWithin(pipe.reader.get(), kLongestWait);
    reap(process);
    if (answer == static_cast<char>(HolderAnswer::NoDisplay)) return false;
    if (answer != static_cast<char>(HolderAnswer::HasClipboard))
        throw std::runtime_error(program + " gave no answer");
    return true;
}

}  // namespace

bool holdPictureOnClipboard(const PictureView& picture) noexcept {
    if (!PixelBuffer::isValidSize(picture.width, picture.height)) return false;
    if (!isVariableSet("DISPLAY")) {
        if (isVariableSet("WAYLAND_DISPLAY")) {
            std::fputs("mobrel: under Wayland without X the picture is not put on the clipboard\n", stderr);
        }
        return false;
    }
    try {
        return hold(picture);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mobrel: the picture could not be put on the clipboard: %s\n", error.what());
        return false;
    }
}

}  // namespace mobrel
