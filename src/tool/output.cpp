#include <kelplib/CommandLineTool.h>
#include <kelplib/KelpProgress.h>

#include "platform/standard_streams.h"

namespace {

constexpr char outputKey[] = "-o";
constexpr int barWidth = 37;
constexpr int withFace = 1;

}  // namespace

int CommandLineTool::getOutFiles(std::vector<FilePath>& out, int /*start*/) {
    out.clear();
    const auto found = options.find(outputKey);
    if (found == options.end()) {
        Kelp::standardOutput() << "ERROR: no argument found: " << outputKey << std::endl;
        return 0;
    }
    const Kelp::Option& option = found->second;
    std::string name;
    int next = 0;
    while ((next = reader.getValue(option.longFlag, option.shortFlag, name, next)) != 0) {
        out.emplace_back(name);
    }
    return static_cast<int>(out.size());
}

bool CommandLineTool::getOutFile(FilePath& out) {
    std::vector<FilePath> files;
    if (getOutFiles(files, 0) == 0) {
        return false;
    }
    out = files.front();
    return true;
}

bool CommandLineTool::checkSpace(const FilePath& /*file*/) const {
    return true;
}

void CommandLineTool::initProgress(double total, std::string text, unsigned long long max_length) {
    const std::lock_guard<std::mutex> lock(progressMutex);
    KELP_progress_global_init(total, barWidth, text.c_str(), withFace);
    KELP_progress_global_set_text(text.c_str(), max_length);
}

void CommandLineTool::progress(double value, std::string text, unsigned long long max_length) {
    if (reader.getVerbose()) {
        return;
    }
    const std::lock_guard<std::mutex> lock(progressMutex);
    KELP_progress_global_set_text(text.c_str(), max_length);
    KELP_progress_global(value);
}
