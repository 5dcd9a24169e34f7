// SPDX-License-Identifier: MIT
#include "programs/batch/run/Options.hpp"

#include <sys/stat.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <memory>
#include <string_view>
#include <thread>

#include "programs/batch/run/StepList.hpp"
#include "programs/batch/steps/ArgumentText.hpp"
#include "programs/batch/steps/Failure.hpp"
#include "programs/batch/steps/Formats.hpp"
#include "programs/batch/steps/MessageText.hpp"

namespace mobrel::batch {

namespace {

using Texts = std::vector<std::string>;

constexpr std::uint64_t kMostJobs = 1024;

constexpr const char* kAbout =
    "\nDoes the same steps to many pictures. STEP is NAME or NAME:ARGUMENT=VALUE,ARGUMENT=VALUE...\n"
    "A PICTURE of the name - is read from standard input and written to standard output.\n";
constexpr const char* kFooter =
    "Exit status: 0 all done, 1 some pictures failed, 2 wrong usage, 130 stopped by a signal.\n"
    "Example: mobrel-batch -o out Sharpen Contrast:Level=20 -- *.bmp";

// The options as they are written; those that are taken as they stand are in `options` already.
struct Written {
    Options options;
    Texts steps;
    std::optional<std::string> format;
    std::optional<std::string> jobs;
    std::optional<std::string> maxPixels;
    std::optional<std::string> quality;
    std::optional<std::string> background;
    bool inPlace = false;
    bool force = false;
    bool list = false;
    bool info = false;
};

class HelpFormatter : public CLI::Formatter {
 public:
    std::string make_usage(const CLI::App*, std::string name) const override {
        return "Usage: " + name + " [OPTION]... STEP... -- PICTURE...\n       " + name +
               " --info [OPTION]... -- PICTURE...\n" + kAbout;
    }
    // The usage line tells them.
    std::string make_positionals(const CLI::App*) const override { return {}; }
};

void declareOptions(CLI::App& app, Written& written) {
    app.formatter(std::make_shared<HelpFormatter>());
    app.footer(kFooter);
    app.set_help_flag("-h,--help", "Print this and exit");
    app.set_version_flag("--version", "mobrel-batch " MOBREL_VERSION, "Print the version and exit");
    app.allow_extras();  // the steps, as they stand: an option of several texts takes brackets for a list
    app.add_option("-o,--output", written.options.folder,
                   "Put the results into a folder, under the pictures' names")
        ->type_name("DIR");
    app.add_flag("--in-place", written.inPlace, "Put each result in the place of its picture");
    app.add_option("-f,--format", written.format,
                   "Format of the results: " + formatNames() + "; each picture's own without it")
        ->type_name("FORMAT");
    app.add_option("-q,--quality", written.quality, "Quality of JPEG results, 0 to 100; 90 without it")
        ->type_name("QUALITY");
    app.add_option("-j,--jobs", written.jobs, "Pictures at once; as many as processors without it")
        ->type_name("JOBS");
    app.add_flag("--force", written.force, "With -o, replace files that are there already");
    app.add_flag("--stop-on-error", written.options.stopOnError, "Begin no picture after one that failed");
    app.add_option("--max-pixels", written.maxPixels, "Refuse pictures of more than N pixels")
        ->type_name("N");
    app.add_option("--background", written.background,
                   "What shows through transparent pixels; black without it")
        ->type_name("#RRGGBB");
    app.add_flag("--keep-orientation", written.options.keepOrientation,
                 "Leave pictures as they are stored, whatever they say of the camera");
    app.add_flag("--json", written.options.json, "Tell of each picture in a line of JSON on standard output");
    app.add_flag("--quiet", written.options.quiet, "No progress, no notes and no count at the end");
    app.add_flag("--info", written.info, "Do no step: tell size, depth and colours of each picture");
    app.add_flag("--list", written.list, "Print all steps with their arguments and exit");
}

Texts stepsOf(const CLI::App& app) {
    Texts steps = app.remaining();
    for (const std::string& text : steps) {
        if (text.starts_with('-')) throw UsageError("there is no option " + onOneLine(text));
    }
    return steps;
}

std::uint64_t countOf(const std::string& text, const char* option, std::uint64_t least, std::uint64_t most) {
    std::uint64_t count = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, count);
    if (error != std::errc() || stop != end || count < least || count > most) {
        throw UsageError(std::string(option) + " must be a whole number from " + std::to_string(least) +
                         " to " + std::to_string(most));
    }
    return count;
}

unsigned jobsOf(const std::optional<std::string>& written) {
    if (written) return static_cast<unsigned>(countOf(*written, "--jobs", 1, kMostJobs));
    return std::max(1U, std::thread::hardware_concurrency());
}

int qualityOf(const std::optional<std::string>& written) {
    if (!written) return kUsualQuality;
    return static_cast<int>(countOf(*written, "--quality", 0, 100));
}

ReadOptions readingOf(const Written& written) {
    ReadOptions reading;
    if (written.maxPixels) {
        reading.maxPixels = countOf(*written.maxPixels, "--max-pixels", 1, std::uint64_t{1} << 32);
    }
    if (written.background) {
        const auto color = colorOf(*written.background);
        if (!color) throw UsageError("--background must be a colour as #RRGGBB");
        reading.background = *color;
    }
    return reading;
}

const PictureFormat* requestedFormat(const std::optional<std::string>& written) {
    if (!written) return nullptr;
    const PictureFormat* const format = formatNamed(*written);
    if (format == nullptr) {
        throw UsageError("format " + onOneLine(*written) + " cannot be written, only " + formatNames());
    }
    return format;
}

void checkFolder(const std::string& folder) {
    struct stat status = {};
    if (::stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) return;
    throw UsageError(onOneLine(folder) + " is no folder to put results into");
}

void checkPipe(const Written& written) {
    if (!written.options.folder.empty() || written.inPlace) {
        throw UsageError("- goes to standard output, not to -o or --in-place");
    }
    if (written.options.json) throw UsageError("with - standard output is for the picture, not for --json");
}

void checkInfo(const Written& written) {
    if (!written.steps.empty()) throw UsageError("with --info there can be no step");
    if (!written.options.folder.empty() || written.inPlace || written.format) {
        throw UsageError("--info has no results for -o, --in-place or -f");
    }
}

bool readsStandardInput(const Texts& pictures) {
    const bool reads = std::ranges::find(pictures, kStandardStream) != pictures.end();
    if (reads && pictures.size() > 1) throw UsageError("with - as a picture there can be no other");
    return reads;
}

Placement placementOf(const Written& written, bool fromStandardInput) {
    if (written.info) return Placement::Nowhere;
    if (fromStandardInput) {
        checkPipe(written);
        return Placement::StandardOutput;
    }
    if (written.inPlace && written.format)
        throw UsageError("--in-place keeps each picture's format; -f needs -o");
    if (written.inPlace && !written.options.folder.empty()) {
        throw UsageError("-o and --in-place do not go together");
    }
    if (written.inPlace) return Placement::InPlace;
    if (written.options.folder.empty())
        throw UsageError("where do the results go? Give -o DIR or --in-place");
    checkFolder(written.options.folder);
    return written.force ? Placement::Over : Placement::Beside;
}

Options optionsOf(const Written& written, Texts pictures) {
    if (written.info) {
        checkInfo(written);
    } else if (written.steps.empty() && !written.format) {
        throw UsageError("no step given (--list shows all); only -f goes without");
    }
    if (pictures.empty()) throw UsageError("no picture given; pictures stand behind --");
    Options options = written.options;
    for (const std::string& text : written.steps) options.steps.push_back(parseStep(text));
    options.fromStandardInput = readsStandardInput(pictures);
    options.placement = placementOf(written, options.fromStandardInput);
    options.pictures = std::move(pictures);
    options.format = requestedFormat(written.format);
    options.quality = qualityOf(written.quality);
    options.jobs = jobsOf(written.jobs);
    options.reading = readingOf(written);
    return options;
}

// CLI11 tells the reason on the first line.
std::string firstLine(const std::string& text) {
    return onOneLine(text.substr(0, text.find('\n')));
}

}  // namespace

std::variant<Options, PrintedText> readOptions(const std::vector<std::string>& arguments) {
    const auto separator = std::ranges::find(arguments, "--");
    Texts pictures(separator == arguments.end() ? separator : separator + 1, arguments.end());
    Texts options(arguments.begin(), separator);
    std::ranges::reverse(options);  // as the library wants them

    CLI::App app("", "mobrel-batch");
    Written written;
    declareOptions(app, written);
    try {
        app.parse(std::move(options));
    } catch (const CLI::CallForHelp&) {
        return PrintedText{app.help()};
    } catch (const CLI::CallForVersion& version) {
        return PrintedText{version.what() + std::string("\n")};
    } catch (const CLI::ParseError& error) {
        throw UsageError(firstLine(error.what()) + " (--help tells more)");
    }
    written.steps = stepsOf(app);
    if (written.list) return PrintedText{stepList()};
    return optionsOf(written, std::move(pictures));
}

}  // namespace mobrel::batch
