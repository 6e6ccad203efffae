#include <kelplib/KelpProgress.h>

#include <cstdio>

#include "console/face_frame.h"
#include "console/face_rows.h"
#include "console/label.h"
#include "console/write_at_once.h"
#include "platform/platform.h"

namespace Kelp {

namespace {

constexpr double blinkPeriodSeconds = 4.0;
constexpr unsigned int blinkMilliseconds = 75;

/// Whether the face blinks now. Blinking starts a new period.
bool takeBlink(double now) {
    if (!(now - KELP_GlobalProgress.last_blink > blinkPeriodSeconds)) {
        return false;
    }
    KELP_GlobalProgress.last_blink = now;
    return true;
}

/// \returns the length of the frame, or EOF
int drawFrame(const BoundedText& frame) {
    const std::string_view text = frame.view();
    return writeAtOnce(text).whole ? static_cast<int>(text.size()) : EOF;
}

int drawRunningFrame(const FaceState& state, bool eyesClosed) {
    char buffer[frameCapacity];
    BoundedText frame(buffer, sizeof buffer);
    appendRunningFrame(frame, state, eyesClosed);
    return drawFrame(frame);
}

int drawFinishedFrame(const FaceState& state, const char* eyes) {
    char buffer[frameCapacity];
    BoundedText frame(buffer, sizeof buffer);
    appendFinishedFrame(frame, state, eyes);
    return drawFrame(frame);
}

int drawRunning(const FaceState& state, bool blinks) {
    if (blinks) {
        drawRunningFrame(state, true);
        platform::sleepMilliseconds(blinkMilliseconds);
        platform::rewindCursor(face::lines);
    }
    const int written = drawRunningFrame(state, false);
    platform::rewindCursor(face::lines);
    return written;
}

int drawCheer(const FaceState& state) {
    int written = 0;
    for (const face::ClosingFrame& frame : face::closing) {
        written = drawFinishedFrame(state, frame.eyes);
        if (frame.pauseMilliseconds > 0) {
            platform::sleepMilliseconds(frame.pauseMilliseconds);
            platform::rewindCursor(face::lines);
        }
    }
    return written;
}

}  // namespace

}  // namespace Kelp

int KELP_progress_smile(double value) {
    using namespace Kelp;
    const FaceState state{value,
                          KELP_GlobalProgress.total,
                          KELP_GlobalProgress.width,
                          labelText(KELP_GlobalProgress.text),
                          KELP_GlobalProgress.start_time,
                          platform::monotonicSeconds()};
    const bool blinks = takeBlink(state.now);
    return state.isRunning() ? drawRunning(state, blinks) : drawCheer(state);
}
