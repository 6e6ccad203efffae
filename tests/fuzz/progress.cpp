// Draws the bar and the face. Input: the bytes of value, total, width, start time, current time and last blink, then the
// label. The whole output, the pauses and the cursor moves are compared.
#include <kelplib/KelpProgress.h>

#include <cstring>
#include <memory>

#include "check.h"
#include "fake_platform.h"
#include "input.h"
#include "progress_model.h"
#include "standard_output_file.h"
#include "target.h"

namespace {

using fuzz::expectSame;
using progress_model::Display;

/// Returns the file that receives standard output. It is kept for many inputs, because opening one each time would dominate
/// the run time.
StandardOutputFile& output() {
    static std::unique_ptr<StandardOutputFile> file;
    static int uses = 0;
    if (uses++ % 10000 == 0) {
        file.reset();
        file = std::make_unique<StandardOutputFile>();
    }
    return *file;
}

/// Returns the output and the result of a drawing call.
template <class Draw>
std::string drawn(Draw draw) {
    StandardOutputFile& file = output();
    const int result = draw();
    return file.arrived() + "returns " + std::to_string(result);
}

Display displayOf(fuzz::Input& input) {
    Display display;
    display.value = input.number<double>();
    display.total = input.number<double>();
    display.width = input.number<int>();
    display.startTime = input.number<double>();
    display.now = input.number<double>();
    display.lastBlink = input.number<double>();
    display.label = fuzz::untilNul(input.rest());
    return display;
}

void showFace(const Display& display) {
    KELP_GlobalProgress = KELP_GlobalProgressData();
    KELP_GlobalProgress.total = display.total;
    KELP_GlobalProgress.width = display.width;
    std::memcpy(KELP_GlobalProgress.text, display.label.data(), display.label.size());
    KELP_GlobalProgress.start_time = display.startTime;
    KELP_GlobalProgress.last_blink = display.lastBlink;
    KELP_GlobalProgress.smile = 1;
}

void compareBar(const Display& display) {
    if (display.value < 0.0) {
        return;  // A negative value would end the process.
    }
    const std::string line = progress_model::bar(display);
    expectSame("KELP_progress", drawn([&] {
                   return KELP_progress(display.value, display.total, display.width, display.label.c_str(),
                                        display.startTime);
               }),
               line + "returns 0");
}

void compareFace(Display display) {
    display.label.resize(std::min<std::size_t>(display.label.size(), 128));
    showFace(display);
    const progress_model::Face face = progress_model::face(display);
    expectSame("KELP_progress_global", drawn([&] { return KELP_progress_global(display.value); }),
               face.frames + "returns " + std::to_string(face.lastFrame));
    expectSame("pauses", fake_platform::state().sleepsMilliseconds, face.pauses);
    expectSame("moves", fake_platform::state().rewoundLines, std::vector<unsigned int>(face.moves, 6));
    expectSame("last blink", KELP_GlobalProgress.last_blink, face.blinks ? display.now : display.lastBlink);
}

}  // namespace

void fuzz::progress(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const Display display = displayOf(input);
    fake_platform::reset();
    fake_platform::state().seconds = display.now;
    compareBar(display);
    compareFace(display);
}
