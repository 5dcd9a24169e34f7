// SPDX-License-Identifier: MIT
// Errors with the platform's standard numbers and texts, and the two places where they may stop.
#pragma once

#include <exception>
#include <new>
#include <optional>
#include <string>
#include <utility>

namespace mobrel {

/// The platform's standard error numbers, as far as the system meets them.
enum class ErrorNumber : int {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    LibraryNotLoaded = 48,
    BadFileName = 52,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceIoError = 57,
    DiskFull = 61,
    TooManyFiles = 67,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    InvalidPropertyValue = 380,
    InvalidPropertyIndex = 381,
    InvalidPicture = 481,
};

/// The platform's standard text of an error.
const char* errorText(ErrorNumber number) noexcept;

/// A failing statement. Ends the process with its text unless a place is written to skip it.
class RuntimeError : public std::exception {
 public:
    explicit RuntimeError(ErrorNumber number) noexcept : m_number(number) {}

    ErrorNumber number() const noexcept { return m_number; }
    const char* what() const noexcept override { return errorText(m_number); }

 private:
    ErrorNumber m_number;
};

/// What becomes of an error that reaches an entry from outside.
enum class ErrorPolicy {
    /// It is told, and ends the run.
    EndRun,
    /// It is told, and the run goes on.
    Tell,
};

/// For the whole process; EndRun until a program says otherwise, before its first window.
void setErrorPolicy(ErrorPolicy policy) noexcept;
ErrorPolicy errorPolicy() noexcept;

/// Runs one statement that is skipped when it fails. True when it ran to its end.
template <typename Statement>
bool skipErrors(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const RuntimeError&) {
        return false;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

/// Runs an entry from outside (a program's main, an event handler) into the core. The text of an
/// error that reaches it comes back; what it means is told by errorPolicy(), and telling it is the caller's.
/// Memory that runs out counts as error 7.
template <typename Entry>
std::optional<std::string> fatalErrorOf(Entry&& entry) {
    try {
        std::forward<Entry>(entry)();
        return std::nullopt;
    } catch (const RuntimeError& error) {
        return errorText(error.number());  // a subclass may tell more than that
    } catch (const std::bad_alloc&) {
        return errorText(ErrorNumber::OutOfMemory);
    }
}

}  // namespace mobrel
