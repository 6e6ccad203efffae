#include <kelplib/Kelp.h>

#include <atomic>
#include <memory>
#include <thread>

#include "platform/platform.h"
#include "platform/standard_streams.h"

namespace {

constexpr unsigned int pollMilliseconds = 100;
constexpr unsigned long long pollsPerSecond = 10;

}  // namespace

void Kelp::waitOrPressKey(unsigned int seconds, std::string message) {
    Kelp::standardOutput() << message << std::endl;
    Kelp::standardOutput() << "    Press key to continue -- otherwise wait for " << std::to_string(seconds)
                           << " seconds." << std::endl;
    // Every call has a flag of its own: the reader of an earlier one may still wait, and takes a later key for itself.
    const auto pressed = std::make_shared<std::atomic<bool>>(false);
    // A signal that interrupts the reader would count as a key.
    std::thread reader = platform::startThread([pressed] {
        try {
            Kelp::standardInput().ignore();
        } catch (const std::ios_base::failure&) {
            // Where a program lets its input throw, the end of it is still its end.
        }
        *pressed = true;
    });
    for (unsigned long long polls = 0; polls <= seconds * pollsPerSecond + 1; ++polls) {
        platform::sleepMilliseconds(pollMilliseconds);
        if (*pressed) {
            reader.join();
            return;
        }
    }
    reader.detach();
}
