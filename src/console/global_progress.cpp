#include <kelplib/KelpProgress.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <type_traits>

#include "console/label.h"
#include "console/progress_bar.h"
#include "platform/platform.h"

// Other languages access the fields by offset.
using Data = KELP_GlobalProgressData;
static_assert(std::is_standard_layout_v<Data> && sizeof(Data::text) == Kelp::labelCapacity);
static_assert(offsetof(Data, total) == 0 && offsetof(Data, width) == 8 && offsetof(Data, text) == 12 &&
              offsetof(Data, start_time) == 144 && offsetof(Data, last_blink) == 152 && offsetof(Data, smile) == 160 &&
              offsetof(Data, terminal_env) == 168 && sizeof(Data) == 176);

KELP_GlobalProgressData KELP_GlobalProgress = {};

int KELP_progress_global_init(double total, int width, const char* text, int smile) {
    const char* const environment = std::getenv("MSYSTEM");
    KELP_GlobalProgress.terminal_env = environment;
    KELP_GlobalProgress.width = width;
    KELP_GlobalProgress.total = total;
    std::string_view label = text == nullptr ? "" : text;
    label = label.substr(0, Kelp::labelCapacity - 1);
    std::memmove(KELP_GlobalProgress.text, label.data(), label.size());
    KELP_GlobalProgress.text[label.size()] = '\0';
    KELP_GlobalProgress.start_time = Kelp::platform::monotonicSeconds();
    KELP_GlobalProgress.smile = environment == nullptr ? smile : 0;
    return 0;
}

void KELP_progress_global_set_text(const char* text, size_t max_length) {
    std::memset(KELP_GlobalProgress.text, 0, sizeof KELP_GlobalProgress.text);
    Kelp::storeLabel(KELP_GlobalProgress.text, text == nullptr ? "" : text, max_length);
}

int KELP_progress_global(double value) {
    if (KELP_GlobalProgress.smile == 1) {
        return KELP_progress_smile(value);
    }
    return Kelp::drawProgressBar(value, KELP_GlobalProgress.total, KELP_GlobalProgress.width,
                                 Kelp::labelText(KELP_GlobalProgress.text), KELP_GlobalProgress.start_time);
}
