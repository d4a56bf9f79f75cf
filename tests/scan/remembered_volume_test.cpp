// Remembered scans of real volumes, which are mounted and unmounted.

#include "scan/remembered_scan_fixture.h"
#include "support/loop_volume.h"
#include "support/secret_change.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

namespace tarvin {
namespace {

/// Two images of volumes with two equal files each, as far as any metadata tell. In the second, one
/// of the files has other bytes.
class RememberedVolume : public RememberedScan {
 protected:
    RememberedVolume() { isVolumeNamed_ = false; }

    /// False if nothing can be mounted here.
    bool makeImages() {
        if (!makeVolumeImage(one_)) {
            ADD_FAILURE() << "no volume can be made";
            return false;
        }
        {
            const LoopMount mount(one_, place_);
            if (!mount) {
                return false;
            }
            write("place/a.jpg", size, 1);
            write("place/b.jpg", size, 1);
        }
        std::filesystem::copy_file(one_, other_);
        // Without the question whether the volume may have been mounted since the last check.
        EXPECT_TRUE(runOnImage("e2fsck -fp " + other_ + " > /dev/null"));
        EXPECT_TRUE(runOnImage("tune2fs -U random " + other_ + " > /dev/null"));
        EXPECT_TRUE(replaceInImage(other_, noise(size, 1), noise(size, 2)));
        return true;
    }

    static constexpr std::size_t size = 3000;

    TemporaryFolder images_;
    const std::string one_ = images_.pathOf("one");
    const std::string other_ = images_.pathOf("other");
    const std::string place_ = tree_.makeFolder("place");
    const NameSets equal_{{"place/a.jpg", "place/b.jpg"}};
};

TEST_F(RememberedVolume, IsReadIfAnotherHasTheSameNumbersAtTheSamePlace) {
    if (!makeImages()) {
        return;
    }
    struct stat before{};
    {
        const LoopMount mount(one_, place_);
        EXPECT_EQ(scan().sets, equal_);
        EXPECT_EQ(scan().opened, Names{});
        before = statusAt(pathOf("place/b.jpg"));
    }
    {
        const LoopMount mount(other_, place_);
        const struct stat now = statusAt(pathOf("place/b.jpg"));
        EXPECT_EQ(now.st_ino, before.st_ino);
        EXPECT_EQ(now.st_size, before.st_size);
        EXPECT_EQ(now.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
        EXPECT_TRUE(hasSameDateOfChange(now, before));
        const Outcome outcome = scan();
        EXPECT_EQ(outcome.opened, (Names{"place/a.jpg", "place/b.jpg"}));
        EXPECT_EQ(outcome.sets, NameSets{});
        EXPECT_EQ(scan().opened, Names{});
    }
    const LoopMount mount(one_, place_);
    const Outcome again = scan();
    EXPECT_EQ(again.opened, Names{});
    EXPECT_EQ(again.sets, equal_);
}

TEST_F(RememberedVolume, IsNotReadAgainWhereverItIsMounted) {
    if (!makeImages()) {
        return;
    }
    {
        const LoopMount mount(one_, place_);
        EXPECT_EQ(scan().opened, (Names{"place/a.jpg", "place/b.jpg"}));
    }
    // So that it has another device number, too.
    const LoopMount first(other_, images_.makeFolder("elsewhere"));
    const LoopMount mount(one_, tree_.makeFolder("another"));
    const Outcome again = scan();
    EXPECT_EQ(again.opened, Names{});
    EXPECT_EQ(again.sets, (NameSets{{"another/a.jpg", "another/b.jpg"}}));
}

TEST_F(RememberedVolume, IsReadIfACopyOfItIsMountedToo) {
    if (!makeImages()) {
        return;
    }
    const std::string copy = images_.pathOf("copy");
    std::filesystem::copy_file(one_, copy);
    {
        const LoopMount mount(one_, place_);
        scan();
    }
    ASSERT_TRUE(replaceInImage(copy, noise(size, 1), noise(size, 2)));
    const LoopMount mount(one_, place_);
    const LoopMount second(copy, tree_.makeFolder("second"));
    const Outcome both = scan();
    EXPECT_EQ(both.opened.size(), 4U);
    ASSERT_EQ(both.sets.size(), 1U);
    EXPECT_EQ(both.sets.front().size(), 3U);
}

}  // namespace
}  // namespace tarvin
