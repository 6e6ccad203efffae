#include "fake_platform.h"

#include <clocale>
#include <utility>

#include "platform/platform.h"

namespace fake_platform {

State& state() {
    static State instance;
    return instance;
}

std::function<void()>& onThreadEnd() {
    static std::function<void()> instance;
    return instance;
}

std::function<void(bool)>& onRead() {
    static std::function<void(bool)> instance;
    return instance;
}

void reset() {
    state() = State();
}

}  // namespace fake_platform

namespace Kelp::platform {

using fake_platform::state;

double monotonicSeconds() {
    return state().seconds;
}

void sleepMilliseconds(unsigned int milliseconds) {
    state().seconds += milliseconds / 1000.0;
    state().sleepsMilliseconds.push_back(milliseconds);
    if (state().onSleep) {
        state().onSleep(milliseconds);
    }
}

int rewindCursor(unsigned int lines) {
    state().rewoundLines.push_back(lines);
    if (state().onRewind) {
        state().onRewind(lines);
    }
    return state().rewindResult;
}

void whenInputIsReady(bool throughCLibrary, const std::function<void()>& read) {
    if (fake_platform::onRead()) {
        fake_platform::onRead()(throughCLibrary);
    }
    read();
}

std::thread startThread(std::function<void()> run) {
    return std::thread([run = std::move(run), end = fake_platform::onThreadEnd()] {
        run();
        if (end) {
            end();
        }
    });
}

void callInForkedChild(void (* /*handler*/)()) {}

bool printsDecimalPoint() {
    return std::localeconv()->decimal_point == std::string(".");
}

std::string currentDirectory() {
    return state().directory;
}

}  // namespace Kelp::platform
