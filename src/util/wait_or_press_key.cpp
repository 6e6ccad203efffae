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

/// The readers that wait for a key, in the order of their calls: a reader that its call has left takes an earlier key.
struct ReaderQueue {
    std::mutex mutex;
    std::condition_variable moved;
    unsigned long long next = 0;   ///< the place of the next reader
    unsigned long long front = 0;  ///< the place of the reader that takes the next key
};

/// Never destroyed: readers wait longer than static objects live.
std::atomic<ReaderQueue*> sharedQueue = nullptr;

/// The readers stay in the parent. A reader of the child that waited for them would wait forever.
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

/// What a call shares with its reader, which may outlive it.
using SharedKey = std::shared_ptr<std::atomic<Key>>;

/// Reads from a buffer of the tool's own, or what std::cin has already.
void ignoreOne(std::istream& input) {
    try {
        input.ignore();
    } catch (...) {
        // Where reading throws, be it for the end of the input, there is no key to wait for.
    }
}

/// Reads from the buffer alone: the stream would first flush the one that it is tied to, which another thread may be using.
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

/// The reader of one call. A call that ends without a key, or whose thread is cancelled, leaves the reader to itself.
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
    /// As reading through the stream would have done; only the calling thread uses the stream.
    static void markInput(std::ios_base::iostate state) {
        try {
            standardInput().setstate(state);
        } catch (const std::ios_base::failure&) {
            // Where a program lets its input throw, the end of it is still its end.
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
