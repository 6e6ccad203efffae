// The bar and the face: a value, a total, a width, the start, the time and the last blink by their bits, then the label. All
// bytes that are written are compared, with the pauses and the moves of the cursor.
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

/// Where standard output leads. One file serves many inputs: a new one for each would take most of the time.
StandardOutputFile& output() {
    static std::unique_ptr<StandardOutputFile> file;
    static int uses = 0;
    if (uses++ % 10000 == 0) {
        file.reset();
        file = std::make_unique<StandardOutputFile>();
    }
    return *file;
}

/// What a drawing call has written and returned.
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
        return;  // It would end the process.
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
