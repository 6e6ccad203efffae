#ifndef KELPKIT_OUTPUT_BUFFERS_H
#define KELPKIT_OUTPUT_BUFFERS_H

#include <array>
#include <streambuf>
#include <string>

#include "unfinished_files.h"

namespace Kelpkit {

/// What the stream of a NewFile writes to. Failures are thrown; a stream with badbit among its exceptions passes them on.
class OutputBuffer : public std::streambuf {
public:
    /// Completes the output.
    /// \param streamIsGood  whether the stream has passed on everything that was written to it
    void publish(bool streamIsGood);

protected:
    /// The name in messages.
    virtual const std::string& name() const = 0;
    /// Throws the first failure again, if there was one.
    virtual void requireIntact() const = 0;
    virtual void complete() = 0;

    void requireOpen() const;

private:
    bool published = false;
};

/// Collects small pieces for an unfinished file.
class FileBuffer : public OutputBuffer {
public:
    FileBuffer(std::string outputName, bool mayOverwrite, std::string advice);

protected:
    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* data, std::streamsize count) override;
    int sync() override;
    const std::string& name() const override;
    void requireIntact() const override;
    void complete() override;

private:
    std::string ownName;
    UnfinishedFiles files;
    std::array<char, 4096> area{};
};

/// Passes everything to the standard output of the C library, which buffers it.
class StandardOutputBuffer : public OutputBuffer {
protected:
    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* data, std::streamsize count) override;
    int sync() override;
    const std::string& name() const override;
    void requireIntact() const override;
    void complete() override;

private:
    template <class Call>
    void require(Call call);

    std::string failure;
};

}  // namespace Kelpkit

#endif
