#include "forced_end.h"

#include <gtest/gtest.h>
#include <kelpkit/NewFiles.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>

#include "system_file.h"

namespace {

using Kelpkit::FilesToRemove;
using Kelpkit::NoForcedEnd;
using Kelpkit::removeFilesByForce;

/// A folder with an unfinished file.
class KitForcedEnd : public testing::Test {
protected:
    KitForcedEnd() {
        create(file);
    }
    ~KitForcedEnd() override {
        std::filesystem::remove_all(folder);
    }

    static void create(const std::filesystem::path& path) {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << "text";
    }

    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "kelplib-forced-end";
    const std::filesystem::path file = folder / "a.unfinished";
};

TEST_F(KitForcedEnd, WaitsWhileItIsHeld) {
    FilesToRemove files;
    files.add(file, *Kelpkit::identityOf(file));
    const NoForcedEnd outer;
    { const NoForcedEnd inner; }
    EXPECT_FALSE(removeFilesByForce());
    EXPECT_TRUE(std::filesystem::exists(file));
}

TEST_F(KitForcedEnd, KeepsFilesOfOthersAndPublishedOnes) {
    const std::filesystem::path other = folder / "b.unfinished";
    create(other);
    FilesToRemove files;
    files.add(file, *Kelpkit::identityOf(other));
    FilesToRemove published;
    published.add(other, *Kelpkit::identityOf(other));
    published.clear();
    {
        FilesToRemove gone;
        gone.add(file, *Kelpkit::identityOf(file));
    }
    // Everything else of this process would wait from here on, so it happens in a process of its own.
    EXPECT_EXIT(
        {
            const bool removed = removeFilesByForce();
            std::_Exit(removed && std::filesystem::exists(file) && std::filesystem::exists(other) ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(KitForcedEnd, RemovesTheFilesOfAllObjects) {
    const std::filesystem::path other = folder / "b.unfinished";
    create(other);
    FilesToRemove first;
    first.add(file, *Kelpkit::identityOf(file));
    FilesToRemove second;
    second.add(other, *Kelpkit::identityOf(other));
    EXPECT_EXIT(std::_Exit(removeFilesByForce() ? 0 : 1), testing::ExitedWithCode(0), "");
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_FALSE(std::filesystem::exists(other));
}

TEST_F(KitForcedEnd, ForgetsObjectsInAnyOrder) {
    const std::filesystem::path other = folder / "b.unfinished";
    create(other);
    auto first = std::make_unique<FilesToRemove>();
    first->add(file, *Kelpkit::identityOf(file));
    FilesToRemove second;
    second.add(other, *Kelpkit::identityOf(other));
    auto third = std::make_unique<FilesToRemove>();
    first.reset();
    third.reset();
    EXPECT_EXIT(std::_Exit(removeFilesByForce() ? 0 : 1), testing::ExitedWithCode(0), "");
    EXPECT_TRUE(std::filesystem::exists(file));
    EXPECT_FALSE(std::filesystem::exists(other));
}

TEST_F(KitForcedEnd, StopsWhateverWouldPreventIt) {
    EXPECT_EXIT(
        {
            removeFilesByForce();
            std::thread([] {
                const NoForcedEnd tooLate;
                std::_Exit(1);
            }).detach();
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            std::_Exit(0);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(KitForcedEnd, KeepsPublishedFilesUnderTheirOldName) {
    std::filesystem::remove(file);
    Kelpkit::NewFiles files({(folder / "a").string()}, false);
    files.startNext();
    files.publish();
    std::filesystem::rename(folder / "a", file);
    EXPECT_EXIT(std::_Exit(removeFilesByForce() ? 0 : 1), testing::ExitedWithCode(0), "");
    EXPECT_TRUE(std::filesystem::exists(file));
}

}  // namespace
