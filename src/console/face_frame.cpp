#include "console/face_frame.h"

#include <cmath>

#include "console/bar_body.h"
#include "console/face_rows.h"
#include "console/time_left.h"
#include "util/truncation.h"

namespace Kelp {

namespace {

const face::Expression& expressionFor(double ratio) {
    const face::Expression* expression = face::running;
    while (ratio >= expression->below) {
        ++expression;
    }
    return *expression;
}

void appendHeader(BoundedText& frame, const FaceState& state) {
    frame.append(face::head);
    frame.append("         ");
    frame.append(state.label);
    frame.append("\n");
}

/// Rounds half away from zero. round() of mingw-w64 (seen with 10.0) rounds the largest double below 0.5 up to 1.
double roundHalfAway(double number) {
    const double whole = std::trunc(number);
    return std::fabs(number - whole) < 0.5 ? whole : whole + std::copysign(1.0, number);
}

/// Appends the percentage and the bar through a buffer of their own, so that a wide bar cannot push out a row of the face. The
/// bar is drawn for the rounded total, the percentage for the exact one.
void appendPercentageAndBar(BoundedText& frame, const FaceState& state) {
    char buffer[512];
    BoundedText line(buffer, sizeof buffer);
    line.append("        ");
    line.appendTenths(100.0 * state.ratio());
    line.append("% ");
    appendBarBody(line, state.width, state.value / roundHalfAway(state.total));
    line.append("|  ");
    frame.append(line.view());
}

void appendTime(BoundedText& frame, std::string_view caption, int seconds) {
    constexpr std::size_t unitWidth = 10;
    frame.append(caption);
    appendWholeTime(frame, seconds, unitWidth);
    frame.append("\n");
}

}  // namespace

void appendRunningFrame(BoundedText& frame, const FaceState& state, bool eyesClosed) {
    const face::Expression& expression = expressionFor(state.ratio());
    appendHeader(frame, state);
    frame.append(eyesClosed ? face::closedEyes : expression.eyes);
    frame.append(expression.middle);
    appendPercentageAndBar(frame, state);
    frame.append("\n");
    frame.append(expression.mouth);
    appendTime(frame,
               "         time remaining: ", estimateLeftSeconds(state.startTime, state.now, 100.0 * state.ratio()));
}

void appendFinishedFrame(BoundedText& frame, const FaceState& state, const char* eyes) {
    appendHeader(frame, state);
    frame.append(eyes);
    frame.append(face::cheeringCheeks);
    frame.append("       100.0%\n");
    frame.append(face::smile);
    appendTime(frame, "         time spent:  ", truncateToInt(state.now - state.startTime));
}

}  // namespace Kelp
