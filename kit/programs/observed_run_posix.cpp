// The observer is looked for beside the program, where a build puts it, and then at its place in an installation, both relative to
// the program's own file.

#include "observed_run.h"

#include <fcntl.h>
#include <kelpkit/Files.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include "empty_folder.h"
#include "observer_report.h"

namespace Kelpkit::programs {

namespace {

const char* const observerName = "kelp_observer.so";

/// Returns the observer's file; an empty path if there is none.
std::filesystem::path observerFile() {
    std::error_code ignored;
    const std::filesystem::path folder = std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
    for (const char* const relative : {".", KELPKIT_OBSERVER_FOLDER}) {
        std::filesystem::path file = folder / relative / observerName;
        if (std::filesystem::is_regular_file(file, ignored)) {
            return file;
        }
    }
    return {};
}

/// The file of a report. The tool may do anything with its name; what it holds is read from this one.
class ReportFile {
public:
    /// Reserves the space where the system can, as the observer has nowhere to complain.
    ReportFile(const std::filesystem::path& name, std::size_t most)
        : file(open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR)) {
        if (file == -1) {
            fail("cannot create " + name.string(), std::error_code(errno, std::generic_category()));
        }
        const bool isReserved = fallocate(file, FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(most)) == 0;
        if (!isReserved && (errno == ENOSPC || errno == EDQUOT)) {
            const std::error_code reason(errno, std::generic_category());
            close(file);
            fail("cannot write " + name.string(), reason);
        }
    }
    ~ReportFile() {
        close(file);
    }
    ReportFile(const ReportFile&) = delete;
    ReportFile& operator=(const ReportFile&) = delete;
    ReportFile(ReportFile&&) = delete;
    ReportFile& operator=(ReportFile&&) = delete;

    /// Returns the report; more than `most` bytes of it if it is longer.
    std::string read(std::size_t most) const {
        std::string text;
        std::array<char, 65536> buffer{};
        while (text.size() <= most) {
            const ssize_t count = pread(file, buffer.data(), buffer.size(), static_cast<off_t>(text.size()));
            if (count <= 0) {
                break;
            }
            text.append(buffer.data(), static_cast<std::size_t>(count));
        }
        return text;
    }

private:
    int file;
};

/// A variable of the environment that the tool inherits.
class Variable {
public:
    Variable(const char* name, const std::string& value) : name(name) {
        if (const char* const old = std::getenv(name)) {
            before = old;
        }
        setenv(name, value.c_str(), 1);
    }
    ~Variable() {
        if (before) {
            setenv(name, before->c_str(), 1);
        } else {
            unsetenv(name);
        }
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    Variable(Variable&&) = delete;
    Variable& operator=(Variable&&) = delete;

private:
    const char* name;
    std::optional<std::string> before;
};

/// Returns a variable's list with one more item.
std::string listWith(const char* variable, const std::string& item) {
    const char* const others = std::getenv(variable);
    return others == nullptr ? item : others + (":" + item);
}

/// Returns the observer's name in LD_PRELOAD. The names there end at blanks and colons, which the paths of folders may contain: so it is
/// a link, relative to the tool's current folder, which is beside that of the link.
std::string preloadName(const std::filesystem::path& link) {
    return "../" + link.parent_path().filename().string() + "/" + link.filename().string();
}

}  // namespace

std::string observationProblem() {
    return observerFile().empty() ? std::string("there is no ") + observerName : "";
}

Observation observe(const Run& run, const RunLimits& limits) {
    const EmptyFolder folder;
    const std::filesystem::path link = folder.path() / observerName;
    std::error_code reason;
    std::filesystem::create_symlink(observerFile(), link, reason);
    if (reason) {
        fail("cannot create " + link.string(), reason);
    }
    const std::filesystem::path name = folder.path() / "report";
    const ReportFile file(name, limits.bytes);
    try {
        const Variable preload("LD_PRELOAD", listWith("LD_PRELOAD", preloadName(link)));
        // AddressSanitizer of gcc 12 otherwise ends the tool, because the observer is loaded before it.
        const Variable sanitizer("ASAN_OPTIONS", listWith("ASAN_OPTIONS", "verify_asan_link_order=0"));
        const Variable path(reportVariable, name.string());
        runTool(run, limits);
    } catch (const std::runtime_error&) {
        // What it has reported before counts.
    }
    const std::string report = file.read(limits.bytes);
    Observation observation = readReport(std::string_view(report).substr(0, limits.bytes));
    observation.isWhole = observation.isWhole && report.size() <= limits.bytes;
    return observation;
}

}  // namespace Kelpkit::programs
