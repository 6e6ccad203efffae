#include "failing_allocations.h"

#include <atomic>
#include <cstdlib>

namespace {

std::atomic<std::size_t> left{0};
std::atomic<bool> failed{false};
std::atomic<std::size_t> live{0};

bool failsNow() {
    std::size_t before = left;
    while (before > 0 && !left.compare_exchange_weak(before, before - 1)) {
    }
    return before == 1;
}

void* allocate(std::size_t size) {
    if (failsNow()) {
        failed = true;
        return nullptr;
    }
    void* const memory = std::malloc(size == 0 ? 1 : size);
    live += memory == nullptr ? 0U : 1U;
    return memory;
}

}  // namespace

void failing_allocations::failAt(std::size_t number) {
    if (number > 0) {
        failed = false;
    }
    left = number;
}

bool failing_allocations::hasFailed() {
    return failed;
}

std::size_t failing_allocations::liveCount() {
    return live;
}

void* operator new(std::size_t size) {
    if (void* const memory = allocate(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return allocate(size);
}

void operator delete(void* memory) noexcept {
    live -= memory == nullptr ? 0U : 1U;
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    ::operator delete(memory);
}
