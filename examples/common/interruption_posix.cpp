#include "interruption.h"

#include <csignal>
#include <initializer_list>

void common::onEndingSignals(void (*note)(int)) {
    // No SA_RESTART: a write that waits for somebody to read ends too. SIGXFSZ is here because a write beyond the limit of
    // file sizes then fails and can be told.
    struct sigaction noting {};
    noting.sa_handler = note;
    for (const int signal : {SIGHUP, SIGINT, SIGPIPE, SIGQUIT, SIGTERM, SIGXCPU, SIGXFSZ}) {
        struct sigaction before {};
        sigaction(signal, nullptr, &before);
        if (before.sa_handler != SIG_IGN) {
            sigaction(signal, &noting, nullptr);
        }
    }
}
