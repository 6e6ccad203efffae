// NewFile and the functions of Files.h within one process; new_files_test.py and new_files_steps_test.py test the rest.

#include <gtest/gtest.h>
#include <kelpkit/Files.h>
#include <kelpkit/NewFiles.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>

#include "failing_allocations.h"

namespace {

constexpr bool onWindows = std::filesystem::path::preferred_separator == '\\';

class NewFileTest : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directory(folder);
    }
    void TearDown() override {
        std::filesystem::remove_all(folder);
    }

    std::string in(const std::string& name) const {
        return (folder / name).string();
    }
    std::string contents(const std::string& name) const {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    std::size_t count() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator()));
    }

    std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("kelpkit_new_file_" + std::to_string(std::random_device()()));
};

template <class Call>
std::string messageOf(Call call) {
    try {
        call();
    } catch (const std::exception& error) {
        return error.what();
    }
    return "nothing thrown";
}

TEST_F(NewFileTest, AppearsWhenPublished) {
    Kelpkit::NewFile file(in("out"));
    EXPECT_TRUE(file.isFile());
    file.stream() << "number " << 17 << '\n' << 0.5 << std::endl;
    EXPECT_EQ(contents("out.unfinished"), "");
    EXPECT_FALSE(std::filesystem::exists(in("out")));
    file.publish();
    EXPECT_EQ(contents("out"), "number 17\n0.5\n");
    EXPECT_EQ(count(), 1U);
}

TEST_F(NewFileTest, KeepsEveryByteAcrossTheBuffers) {
    for (const std::size_t size : {0U, 1U, 4095U, 4096U, 4097U, 65535U, 65536U, 65537U, 200000U}) {
        std::string text;
        for (std::size_t i = 0; i < size; ++i) {
            text += static_cast<char>(i % 251);
        }
        Kelpkit::NewFile file(in("out"), true);
        file.stream().write(text.data(), static_cast<std::streamsize>(size / 2));
        for (std::size_t i = size / 2; i < size; ++i) {
            file.stream().put(text[i]);
        }
        file.publish();
        EXPECT_TRUE(contents("out") == text) << size;
    }
}

TEST_F(NewFileTest, LeavesNothingWithoutPublish) {
    {
        Kelpkit::NewFile file(in("out"));
        file.stream() << std::string(100000, 'x') << std::flush;
        EXPECT_EQ(count(), 1U);
    }
    EXPECT_EQ(count(), 0U);
}

TEST_F(NewFileTest, RefusesAStreamThatDroppedOutput) {
    Kelpkit::NewFile file(in("out"));
    file.stream().setstate(std::ios::failbit);
    file.stream() << "lost";
    EXPECT_EQ(messageOf([&] { file.publish(); }),
              "cannot write " + in("out") +
                  ": an input could not be read or was empty, or the output stream was in a failed state");
    file.stream().clear();
    file.stream() << "kept";
    file.publish();
    EXPECT_EQ(contents("out"), "kept");
}

TEST_F(NewFileTest, IsWrittenAndPublishedOnce) {
    Kelpkit::NewFile file(in("out"));
    file.publish();
    EXPECT_THROW(file.stream() << "late" << std::flush, std::logic_error);
    file.stream().clear();
    EXPECT_EQ(messageOf([&] { file.stream() << "late" << std::flush; }), in("out") + " is published already");
    file.stream().clear();
    EXPECT_THROW(file.stream().put('x'), std::logic_error);
    EXPECT_THROW(file.publish(), std::logic_error);
    EXPECT_EQ(contents("out"), "");
}

TEST_F(NewFileTest, StandardOutputIsInOrder) {
    testing::internal::CaptureStdout();
    Kelpkit::NewFile file(std::nullopt);
    EXPECT_FALSE(file.isFile());
    std::cout << 1;
    file.stream() << 2 << "3";
    std::printf("4");
    file.stream().put('5');
    std::cout << 6;
    file.publish();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "123456");
    EXPECT_THROW(file.stream() << "late", std::logic_error);
    EXPECT_THROW(file.publish(), std::logic_error);
}

TEST_F(NewFileTest, RefusesUnusableNames) {
    std::filesystem::create_directory(in("folder"));
    std::ofstream(in("used")).put('u');
    std::ofstream(in("left.unfinished")).put('l');
    std::ofstream(in("moved.replaced")).put('m');
    const std::string nul("a\0b", 3);
    const struct {
        std::string name;
        bool mayOverwrite;
        std::string message;
    } cases[] = {
        {"", true, "the name of an output file is empty"},
        {nul, true, "a file name contains a NUL byte"},
        {in("folder"), true, in("folder") + " is a directory"},
        {in("used"), false, in("used") + " exists already; ask the author"},
        {in("left"), true, in("left.unfinished") + " exists already; remove it unless another run is writing it"},
        {in("moved"), true, in("moved.replaced") + " exists already; move it away first"},
        {in("none/out"), true, "cannot create " + in("none/out.unfinished") + ": No such file or directory"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(messageOf([&] { const Kelpkit::NewFile file(row.name, row.mayOverwrite, "ask the author"); }),
                  row.message);
        EXPECT_EQ(count(), 4U);
    }
    EXPECT_EQ(messageOf([&] { const Kelpkit::NewFile file(in("used")); }), in("used") + " exists already");
}

TEST_F(NewFileTest, SeveralFilesInOrder) {
    Kelpkit::NewFiles files({in("a"), in("b"), in("c")}, false);
    try {
        files.write("x", 1);
        ADD_FAILURE();
    } catch (const std::logic_error& error) {
        EXPECT_STREQ(error.what(), "no file is started");
    }
    files.startNext();
    files.write("1", 1);
    files.write("2", 1);
    files.startNext();
    files.publish();
    EXPECT_EQ(contents("a"), "12");
    EXPECT_EQ(contents("b"), "");
    EXPECT_EQ(count(), 2U);
    EXPECT_THROW(files.publish(), std::logic_error);
    EXPECT_THROW(files.write("x", 1), std::logic_error);
}

TEST_F(NewFileTest, AllNamesAreCheckedBeforeTheFirstFile) {
    std::ofstream(in("used")).put('u');
    std::ofstream(in("left.unfinished")).put('l');
    EXPECT_EQ(messageOf([&] {
                  const Kelpkit::NewFiles files({in("a"), in("used")}, false);
              }),
              in("used") + " exists already");
    EXPECT_EQ(messageOf([&] {
                  const Kelpkit::NewFiles files({in("a"), in("left")}, false);
              }),
              in("left.unfinished") + " exists already; remove it unless another run is writing it");
}

TEST_F(NewFileTest, AFailedPublishIsNotRepeated) {
    Kelpkit::NewFiles files({in("a")}, false);
    files.startNext();
    std::ofstream(in("a")).put('o');
    EXPECT_EQ(messageOf([&] { files.publish(); }), in("a") + " exists already");
    std::filesystem::remove(in("a"));
    try {
        files.publish();
        ADD_FAILURE();
    } catch (const std::logic_error& error) {
        EXPECT_STREQ(error.what(), "publish() was called already");
    }
    EXPECT_EQ(count(), 0U);
}

TEST_F(NewFileTest, NothingIsLeftWithoutMemory) {
    std::string outcome = "bad_alloc";
    for (std::size_t number = 1; outcome == "bad_alloc" && number < 1000; ++number) {
        outcome = failing_allocations::outcomeOf(number, [&] {
            Kelpkit::NewFiles files({in("a"), in("b")}, false);
            files.startNext();
            files.startNext();
            files.publish();
        });
        EXPECT_EQ(count(), outcome == "whole" ? 2U : 0U) << number;
    }
    EXPECT_EQ(outcome, "whole");
}

TEST_F(NewFileTest, ALongWriteNeedsNoMemory) {
    std::string text;
    for (int i = 0; i < 200000; ++i) {
        text += static_cast<char>(i % 251);
    }
    Kelpkit::NewFiles files({in("a")}, false);
    files.startNext();
    files.write("1", 1);
    EXPECT_EQ(failing_allocations::outcomeOf(1, [&] { files.write(text.data(), text.size()); }), "whole");
    files.publish();
    EXPECT_TRUE(contents("a") == "1" + text);
}

TEST_F(NewFileTest, NoNameAfterTheLast) {
    Kelpkit::NewFiles files({in("a")}, false);
    files.startNext();
    try {
        files.startNext();
        ADD_FAILURE();
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "startNext() was called after the last name");
    }
}

TEST_F(NewFileTest, InputsAreFoundUnderAnyName) {
    std::ofstream(in("input")).put('i');
    std::ofstream(in("other")).put('o');
    std::filesystem::create_hard_link(in("input"), in("link"));
    const std::string problem = " is an input too; choose another name";
    EXPECT_EQ(messageOf([&] {
                  Kelpkit::requireNoInput(in("input"), {in("other"), in("input")});
              }),
              in("input") + problem);
    EXPECT_EQ(messageOf([&] { Kelpkit::requireNoInput(in("link"), {in("input")}); }), in("link") + problem);
    EXPECT_EQ(messageOf([&] { Kelpkit::requireNoInput(in("./input"), {in("input")}); }), in("./input") + problem);
    Kelpkit::requireNoInput(in("other"), {in("input"), in("missing")});
    Kelpkit::requireNoInput(in("missing"), {in("missing")});
    Kelpkit::requireNoInput(std::nullopt, {in("input")});
}

TEST_F(NewFileTest, InputsAreReadToTheirEnd) {
    for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 131072U, 131073U}) {
        std::string bytes;
        for (std::size_t i = 0; i < size; ++i) {
            bytes += static_cast<char>(i % 251);
        }
        std::ofstream(in("input"), std::ios::binary) << bytes;
        Kelpkit::InputFile input(in("input"), std::ios::binary);
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(input.stream()), {}), bytes) << size;
    }
    std::ofstream(in("input"), std::ios::binary) << "one\r\n\xff 2";
    Kelpkit::InputFile lines(in("input"), std::ios::binary);
    EXPECT_EQ(lines.stream().peek(), 'o');
    std::string line;
    EXPECT_TRUE(std::getline(lines.stream(), line));
    EXPECT_EQ(line, "one\r");
    EXPECT_TRUE(std::getline(lines.stream(), line));
    EXPECT_EQ(line, "\xff 2");
    EXPECT_FALSE(std::getline(lines.stream(), line));
    EXPECT_TRUE(lines.stream().eof());
    // It stays at its end.
    std::ofstream(in("input"), std::ios::binary | std::ios::app) << "more";
    lines.stream().clear();
    EXPECT_FALSE(std::getline(lines.stream(), line));
}

TEST_F(NewFileTest, InputsTakeAByteBack) {
    for (const std::size_t size : {1U, 2U, 65535U, 65536U, 65537U, 131072U, 131073U}) {
        std::string bytes;
        for (std::size_t i = 0; i <= size; ++i) {
            bytes += static_cast<char>(i % 251);
        }
        std::ofstream(in("input"), std::ios::binary) << bytes;
        Kelpkit::InputFile input(in("input"), std::ios::binary);
        std::string read(size, '?');
        input.stream().read(read.data(), static_cast<std::streamsize>(size));
        EXPECT_EQ(input.stream().peek(), static_cast<unsigned char>(bytes.back())) << size;
        input.stream().unget();
        EXPECT_EQ(input.stream().get(), static_cast<unsigned char>(bytes[size - 1])) << size;
        EXPECT_EQ(input.stream().get(), static_cast<unsigned char>(bytes[size])) << size;
        EXPECT_EQ(input.stream().get(), std::char_traits<char>::eof()) << size;
        input.stream().clear();
        input.stream().unget();
        EXPECT_EQ(input.stream().get(), static_cast<unsigned char>(bytes[size])) << size;
    }
    Kelpkit::InputFile unread(in("input"));
    EXPECT_EQ(unread.stream().peek(), 0);
    EXPECT_THROW(unread.stream().unget(), std::ios_base::failure);
}

/// Reads the file as a text.
std::string textOf(const std::string& name) {
    Kelpkit::InputFile input(name);
    return {std::istreambuf_iterator<char>(input.stream()), std::istreambuf_iterator<char>()};
}

TEST_F(NewFileTest, WindowsConvertsLineEndsOfTexts) {
    const std::pair<std::string, std::string> table[] = {
        {"", ""},
        {"\n", "\n"},
        {"\r", "\r"},
        {"\r\n", "\n"},
        {"one\r\ntwo\r\n", "one\ntwo\n"},
        {"\n\r", "\n\r"},
        {"a\rb\r\rc", "a\rb\r\rc"},
        {"a\r\r\nb", "a\r\nb"},
        {"\r\r\r", "\r\r\r"},
        {"one\r\n\x1atwo\r\n\x1a", "one\n\x1atwo\n\x1a"},
    };
    for (const auto& [bytes, windowsText] : table) {
        // Around the end of a block of 65536 bytes.
        for (const std::size_t before : {0U, 65533U, 65534U, 65535U, 65536U, 65537U, 131071U}) {
            const std::string start(before, 'x');
            std::ofstream(in("input"), std::ios::binary) << start << bytes;
            EXPECT_TRUE(textOf(in("input")) == start + (onWindows ? windowsText : bytes))
                << testing::PrintToString(bytes) << " after " << before;
            Kelpkit::InputFile input(in("input"), std::ios::binary);
            EXPECT_TRUE(std::string(std::istreambuf_iterator<char>(input.stream()), {}) == start + bytes)
                << testing::PrintToString(bytes) << " after " << before;
        }
    }
}

TEST_F(NewFileTest, WindowsConvertsEveryLineEndOfALongText) {
    std::string lines;
    std::string returns;
    for (int i = 0; i < 70000; ++i) {
        lines += "\r\n";
        returns += '\r';
    }
    std::ofstream(in("input"), std::ios::binary) << 'x' << lines;
    EXPECT_TRUE(textOf(in("input")) == "x" + (onWindows ? std::string(70000, '\n') : lines));
    std::ofstream(in("input"), std::ios::binary) << returns;
    EXPECT_TRUE(textOf(in("input")) == returns);
}

TEST_F(NewFileTest, InputsThatCannotBeRead) {
    EXPECT_EQ(messageOf([&] { const Kelpkit::InputFile input(in("none")); }),
              "cannot read " + in("none") + ": No such file or directory");
    EXPECT_EQ(messageOf([&] { const Kelpkit::InputFile input(in("")); }), in("") + " is a directory");
}

TEST_F(NewFileTest, FilesAreChecked) {
    std::ofstream(in("file")) << "12345";
    EXPECT_EQ(Kelpkit::sizeOf(in("file")), 5U);
    EXPECT_TRUE(Kelpkit::exists(in("file")));
    EXPECT_FALSE(Kelpkit::exists(in("none")));
    EXPECT_FALSE(Kelpkit::exists(in(std::string(5000, 'x'))));
    EXPECT_TRUE(Kelpkit::arePlainFiles({in("file")}));
    EXPECT_FALSE(Kelpkit::arePlainFiles({in("file"), in("none")}));
    EXPECT_EQ(messageOf([&] { Kelpkit::sizeOf(in("none")); }),
              "cannot read " + in("none") + ": No such file or directory");
    EXPECT_EQ(messageOf([&] { Kelpkit::sizeOf(in("")); }), in("") + " is a directory");
    EXPECT_EQ(messageOf([] { Kelpkit::sizeOf(""); }), "the name of a file is empty");
    EXPECT_EQ(messageOf([] { const Kelpkit::InputFile input(""); }), "the name of a file is empty");
    Kelpkit::requireNoPattern(in("none"));
    EXPECT_EQ(messageOf([&] { Kelpkit::requireNoPattern(in("*")); }),
              in("*") + ": name the file, patterns are not expanded");
    // No file has such a name on Windows.
    if (std::ofstream(in("a*")).put('x')) {
        Kelpkit::requireNoPattern(in("a*"));
    }
    EXPECT_EQ(Kelpkit::leftover(in("file")), "");
    std::ofstream(in("file.replaced")).put('x');
    EXPECT_EQ(Kelpkit::leftover(in("file")), in("file.replaced"));
}

}  // namespace
