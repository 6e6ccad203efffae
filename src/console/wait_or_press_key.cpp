#include <kelplib/Kelp.h>

#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <memory>
#include <mutex>
#include <new>
#include <thread>

#include "platform/platform.h"
#include "platform/standard_streams.h"

namespace Kelp {

namespace {

constexpr unsigned int pollMilliseconds = 100;
constexpr unsigned long long pollsPerSecond = 10;

/// The threads that wait for a key. They take keys in the order of their calls, even those whose call has timed out.
struct ReaderQueue {
    std::mutex mutex;
    std::condition_variable moved;
    unsigned long long next = 0;   ///< the place of the next reader
    unsigned long long front = 0;  ///< the place of the reader that takes the next key
};

/// Never destroyed: readers may wait until after static objects are destroyed.
std::atomic<ReaderQueue*> sharedQueue = nullptr;

/// Called in the child of a fork, where the parent's readers do not exist. In the old queue the child's readers would wait for
/// them forever.
void startNewQueue() {
    new (sharedQueue.load()) ReaderQueue();
}

ReaderQueue& readerQueue() {
    ReaderQueue* queue = sharedQueue;
    if (queue == nullptr) {
        auto created = std::make_unique<ReaderQueue>();
        if (sharedQueue.compare_exchange_strong(queue, created.get())) {
            queue = created.release();
            platform::callInForkedChild(startNewQueue);
        }
    }
    return *queue;
}

enum class Key { none, pressed, endOfInput, failedInput };

/// Shared by a call and its reader, which may outlive the call.
using SharedKey = std::shared_ptr<std::atomic<Key>>;

/// Reads from the tool's own stream buffer, or a character that std::cin has buffered.
void ignoreOne(std::istream& input) {
    try {
        input.ignore();
    } catch (...) {
        // Input that throws, even at its end, has no key to wait for.
    }
}

/// Reads from the buffer without the stream, which would first flush the stream it is tied to. Another thread may use that one.
Key takeFromBuffer(std::streambuf* buffer) {
    if (buffer == nullptr) {
        return Key::failedInput;
    }
    try {
        return buffer->sbumpc() == std::char_traits<char>::eof() ? Key::endOfInput : Key::pressed;
    } catch (...) {
        return Key::failedInput;
    }
}

Key readKey(InputSource source) {
    if (source == InputSource::stream) {
        ignoreOne(standardInput());
        return Key::pressed;
    }
    const bool throughCLibrary = source == InputSource::cLibrary;
    Key key = Key::none;
    platform::whenInputIsReady(throughCLibrary, [&key, throughCLibrary] {
        if (throughCLibrary) {
            key = std::getc(stdin) == EOF ? Key::endOfInput : Key::pressed;
        } else {
            key = takeFromBuffer(standardInput().rdbuf());
        }
    });
    return key;
}

void readKeyInTurn(unsigned long long place, InputSource source, const SharedKey& key) {
    ReaderQueue& queue = readerQueue();
    std::unique_lock<std::mutex> lock(queue.mutex);
    queue.moved.wait(lock, [&] { return queue.front == place; });
    lock.unlock();
    const Key read = readKey(source);
    lock.lock();
    ++queue.front;
    queue.moved.notify_all();
    lock.unlock();
    *key = read;
}

std::thread startReader(InputSource source, const SharedKey& key) {
    if (source == InputSource::stream) {
        return platform::startThread([key] { *key = readKey(InputSource::stream); });
    }
    ReaderQueue& queue = readerQueue();
    const std::lock_guard<std::mutex> lock(queue.mutex);
    std::thread reader =
        platform::startThread([place = queue.next, source, key] { readKeyInTurn(place, source, key); });
    ++queue.next;
    return reader;
}

/// The reader of one call. It is detached if the call ends without a key or its thread is cancelled.
class Reader {
public:
    Reader() : thread(startReader(standardInputSource(), key)) {}
    ~Reader() {
        if (thread.joinable()) {
            thread.detach();
        }
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    bool hasKey() const {
        return *key != Key::none;
    }

    void finish() {
        thread.join();
        if (*key == Key::endOfInput) {
            markInput(std::ios_base::eofbit);
        } else if (*key == Key::failedInput) {
            markInput(std::ios_base::badbit);
        }
    }

private:
    /// Marks std::cin as reading through it would have done. Only the calling thread uses the stream.
    static void markInput(std::ios_base::iostate state) {
        try {
            standardInput().setstate(state);
        } catch (const std::ios_base::failure&) {
            // The program asked for this exception, but a wait does not throw it.
        }
    }

    SharedKey key = std::make_shared<std::atomic<Key>>(Key::none);
    std::thread thread;
};

}  // namespace

void waitOrPressKey(unsigned int seconds, std::string message) {
    standardOutput() << message << std::endl;
    standardOutput() << "    Press key to continue -- otherwise wait for " << std::to_string(seconds) << " seconds."
                     << std::endl;
    Reader reader;
    for (unsigned long long polls = 0; polls <= seconds * pollsPerSecond + 1; ++polls) {
        platform::sleepMilliseconds(pollMilliseconds);
        if (reader.hasKey()) {
            reader.finish();
            return;
        }
    }
}

}  // namespace Kelp
