#ifndef KELPLIB_TESTS_FILE_PATH_TEST_H
#define KELPLIB_TESTS_FILE_PATH_TEST_H

#include <gtest/gtest.h>
#include <kelplib/FilePath.h>

#include <string>

#include "fake_platform.h"

/// File paths in a current directory of the test's choice.
class FilePathTest : public testing::Test {
protected:
    ~FilePathTest() override {
        fake_platform::reset();
    }

    static void directory(const char* text) {
        fake_platform::state().directory = text;
    }

    /// Folder and name with a bar between them.
    static std::string parts(const FilePath& file) {
        return file.getPath() + "|" + file.getName();
    }
};

#endif
