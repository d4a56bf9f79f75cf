#include "controller/rule_count.h"

#include "model/file_store.h"
#include "support/faulty_file_system.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <thread>
#include <utility>

namespace tarvin {

namespace {

using Steady = std::chrono::steady_clock;

/// 20 million files, of which a thousand are stored: counting takes a good part of a second.
std::shared_ptr<Modal> hugeList() {
    const std::shared_ptr<FileStore> store = FileStore::create();
    const Directory* const folder = store->addRoot("/a");
    auto set = std::make_shared<Set>();
    for (int count = 0; count < 1'000; ++count) {
        set->addFiles(store->share(store->addFile(folder, "x", 1, std::nullopt, std::nullopt)));
    }
    auto extension = std::make_shared<Extensions>("x");
    for (int count = 0; count < 20'000; ++count) {
        extension->addSet(set);
    }
    auto list = std::make_shared<Modal>();
    list->addExtension(std::move(extension));
    return list;
}

TEST(RuleCountTest, AbandoningDoesNotWaitForTheCount) {
    FaultyFileSystem files;
    const std::shared_ptr<Modal> list = hugeList();
    RuleCount count(files);
    auto start = Steady::now();
    count.start(list, {});
    std::optional<CountedRule> counted;
    while (!counted) {
        counted = count.take();
        std::this_thread::yield();
    }
    EXPECT_EQ(counted->outcome.files, 20'000U * 999);
    const Steady::duration whole = Steady::now() - start;
    std::array<Steady::duration, 5> abandoning{};
    for (Steady::duration& took : abandoning) {
        start = Steady::now();
        count.start(list, {});
        while (Steady::now() - start < whole / 4) {
            std::this_thread::yield();
        }
        const auto before = Steady::now();
        count.abandon();
        took = Steady::now() - before;
    }
    std::sort(abandoning.begin(), abandoning.end());
    EXPECT_LT(abandoning[2], whole / 4);
    EXPECT_TRUE(waitUntil([&] { return RuleCount::running() == 0 && list.use_count() == 1; }));
}

}  // namespace

}  // namespace tarvin
