#ifndef KELPLIB_MUTATION_SWITCH_H
#define KELPLIB_MUTATION_SWITCH_H

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <type_traits>

/// Every changed source includes this header. KELPLIB_MUTANT is the number of the mutant that takes effect. The byte of each
/// mutant that the program reaches is set to 1 in the file KELPLIB_MUTANTS_REACHED, which has to exist.
namespace kelplib_mutation {

constexpr std::size_t capacity = 8192;

struct State {
    int chosen = std::getenv("KELPLIB_MUTANT") == nullptr ? 0 : std::atoi(std::getenv("KELPLIB_MUTANT"));
    unsigned char* reached = map(std::getenv("KELPLIB_MUTANTS_REACHED"));

    /// Child processes write to the same file, so what they reach counts, however they end.
    static unsigned char* map(const char* name) {
        const int file = name == nullptr ? -1 : open(name, O_RDWR);
        void* bytes = mmap(nullptr, capacity, PROT_READ | PROT_WRITE,
                           file == -1 ? MAP_PRIVATE | MAP_ANONYMOUS : MAP_SHARED, file, 0);
        if (file != -1) {
            close(file);
        }
        return static_cast<unsigned char*>(bytes);
    }
};

inline bool on(int number) {
    static const State state;
    state.reached[number] = 1;
    return number == state.chosen;
}

}  // namespace kelplib_mutation

#endif
