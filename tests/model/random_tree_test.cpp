#include "model/file_store.h"
#include "model/modal.h"
#include "model/plain_tree.h"
#include "model/result_tree.h"
#include "support/recording_trash.h"
#include "support/test_seeds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

// Random operations on random trees, on the model and on the reference implementation (PlainTree).
// Both must agree on every mark, state and counter after every operation.

namespace tarvin {
namespace {

/// A pair of trees that are always changed together. Three lists: two categories and their joined
/// list, so most extensions are in two lists.
class Twins {
 public:
    explicit Twins(std::uint64_t seed) : random_(seed) {
        for (std::size_t list = 0; list < categories; ++list) {
            const std::size_t count = below(4);
            for (std::size_t i = 0; i < count; ++i) {
                addExtension(list);
            }
        }
    }

    void step() {
        list_ = below(lists_.size());
        PlainModal& plain = plainLists_[list_];
        if (plain.extensions.empty()) {
            operateOnList();
            return;
        }
        const std::size_t e = below(plain.extensions.size());
        extension_ = lists_[list_].extensions()[e];
        plainExtension_ = plain.extensions[e];
        if (plainExtension_->sets.empty()) {
            below(2) == 0 ? operateOnList() : operateOnExtension();
            return;
        }
        const std::size_t s = below(plainExtension_->sets.size());
        set_ = extension_->sets()[s];
        plainSet_ = plainExtension_->sets[s];
        operateOnAnyLevel();
    }

    void expectEqual() {
        for (std::size_t list = 0; list < lists_.size(); ++list) {
            const Modal& modal = lists_[list];
            const PlainModal& plain = plainLists_[list];
            EXPECT_EQ(levelOf(modal), levelOf(plain)) << "list " << list;
            ASSERT_EQ(modal.extensionCount(), plain.extensions.size());
            for (std::size_t i = 0; i < plain.extensions.size(); ++i) {
                expectEqual(*modal.extensions()[i], *plain.extensions[i]);
            }
            expectSameLookups(modal, plain);
        }
        EXPECT_EQ(trash_.attempts(), plainTrash_.attempts());
    }

 private:
    static constexpr std::size_t categories = 2;
    static constexpr std::size_t joined = 2;

    std::size_t below(std::size_t bound) { return random_() % bound; }
    int randomState() { return std::array{0, 1, -1, 7}[below(4)]; }
    std::string randomName() { return std::array{"jpg", "png", "gif", "", "tar"}[below(5)]; }

    void operateOnAnyLevel() {
        switch (below(8)) {
            case 0:
                operateOnList();
                break;
            case 1:
                operateOnExtension();
                break;
            case 2:
                operateOnSet();
                break;
            case 3:
                setCounters();
                break;
            default:
                operateThroughList();
        }
    }

    void operateThroughList() {
        Modal& modal = lists_[list_];
        PlainModal& plain = plainLists_[list_];
        switch (below(6)) {
            case 0:
                EXPECT_EQ(modal.removeSelectedFilesInSet(set_, extension_, trash_),
                          plain.remove(*plainSet_, *plainExtension_, plainTrash_));
                break;
            case 1:
                EXPECT_EQ(modal.addSelectedFilesToExceptionInSet(set_, extension_),
                          plain.except(*plainSet_, *plainExtension_));
                break;
            case 2:
                modal.changeStateOfExtension(extension_, nullptr, nullptr);
                plain.changeState(*plainExtension_, nullptr, nullptr);
                break;
            case 3:
                modal.changeStateOfExtension(extension_, set_, nullptr);
                plain.changeState(*plainExtension_, plainSet_.get(), nullptr);
                break;
            default:
                if (!plainSet_->files.empty()) {
                    const std::size_t f = below(plainSet_->files.size());
                    modal.changeStateOfExtension(extension_, set_, set_->files()[f]);
                    plain.changeState(*plainExtension_, plainSet_.get(), plainSet_->files[f].get());
                }
        }
    }

    void operateOnList() {
        Modal& modal = lists_[list_];
        PlainModal& plain = plainLists_[list_];
        switch (below(5)) {
            case 0:
                modal.markAllExtension();
                plain.markAllExtension();
                break;
            case 1:
                modal.unmarkAllExtension();
                plain.unmarkAllExtension();
                break;
            case 2:
                modal.calculateTotalFilesAndSize();
                plain.calculateTotalFilesAndSize();
                break;
            case 3:
                if (plain.extensions.size() < 5) {
                    addExtension(below(categories));
                }
                break;
            default:
                reverseExtensions(modal, plain);
        }
    }

    void operateOnExtension() {
        switch (below(7)) {
            case 0:
                extension_->changeState();
                plainExtension_->changeState();
                break;
            case 1:
                extension_->markAllSet();
                plainExtension_->markAllSet();
                break;
            case 2:
                extension_->unmarkAllSet();
                plainExtension_->unmarkAllSet();
                break;
            case 3:
                EXPECT_EQ(static_cast<int>(extension_->determineSelfState()),
                          plainExtension_->determineSelfState());
                break;
            case 4:
                plainExtension_->name = randomName();
                extension_->setName(plainExtension_->name);
                break;
            case 5:
                if (plainExtension_->sets.size() < 5) {
                    addSet();
                }
                break;
            default:
                replaceSets();
        }
    }

    void operateOnSet() {
        switch (below(6)) {
            case 0:
                set_->markAllFiles();
                plainSet_->markAllFiles();
                break;
            case 1:
                set_->unmarkAllFiles();
                plainSet_->unmarkAllFiles();
                break;
            case 2:
                EXPECT_EQ(set_->removeSelectedFilesInSet(trash_), plainSet_->remove(plainTrash_));
                break;
            case 3:
                EXPECT_EQ(set_->addSelectedFilesInSetToException(), plainSet_->except());
                break;
            case 4:
                addFile(*set_, *plainSet_);
                break;
            default:
                reverseFiles();
        }
    }

    void setCounters() {
        const std::uint64_t value = below(2) == 0 ? below(5) : random_();
        switch (below(6)) {
            case 0:
                plainSet_->state = randomState();
                set_->setSetsState(static_cast<CheckState>(plainSet_->state));
                break;
            case 1:
                plainSet_->marked = value;
                set_->setTotalFilesSelectedInSet(value);
                break;
            case 2:
                plainSet_->markedSize = value;
                set_->setTotalFilesSelectedInSetSize(value);
                break;
            case 3:
                plainExtension_->state = randomState();
                extension_->setExtensionState(static_cast<CheckState>(plainExtension_->state));
                break;
            case 4:
                plainExtension_->marked = value;
                extension_->setTotalFilesSelectedInExtension(value);
                break;
            default:
                plainLists_[list_].marked = value;
                lists_[list_].setTotalFilesSelected(value);
        }
    }

    void addExtension(std::size_t category) {
        extension_ = std::make_shared<Extensions>(randomName());
        plainExtension_ = std::make_shared<PlainExtensions>();
        plainExtension_->name = extension_->name();
        const std::size_t sets = below(4);
        for (std::size_t i = 0; i < sets; ++i) {
            addSet();
        }
        for (const std::size_t list : {category, joined}) {
            lists_[list].addExtension(extension_);
            plainLists_[list].extensions.push_back(plainExtension_);
        }
    }

    void addSet() {
        set_ = std::make_shared<Set>();
        plainSet_ = std::make_shared<PlainSet>();
        const std::size_t files = below(6);
        for (std::size_t i = 0; i < files; ++i) {
            addFile(*set_, *plainSet_);
            plainSet_->total += i == 0 ? 0 : 1;
            plainSet_->totalSize += i == 0 ? 0 : plainSet_->files.back()->size;
        }
        set_->setTotalFilesInSet(plainSet_->total);
        set_->setTotalFilesInSetSize(plainSet_->totalSize);
        extension_->addSet(set_);
        plainExtension_->sets.push_back(plainSet_);
        plainExtension_->total += plainSet_->total;
        plainExtension_->totalSize += plainSet_->totalSize;
        extension_->setTotalFilesInExtension(plainExtension_->total);
        extension_->setTotalFilesInExtensionSize(plainExtension_->totalSize);
    }

    void addFile(Set& set, PlainSet& plain) {
        const auto file = std::make_shared<PlainFile>();
        file->path = numbered("/r/", nextFile_++);
        file->size = below(1000);
        const std::size_t fate = below(10);
        for (RecordingTrash* trash : {&trash_, &plainTrash_}) {
            if (fate != 0) {
                trash->addExisting(file->path);
            }
            if (fate == 1) {
                trash->refuse(file->path);
            }
        }
        plain.files.push_back(file);
        set.addFiles(FileStore::standalone(file->path, file->size));
    }

    /// Removes a set, adds one again, or adds one of another extension: in each case the extension
    /// has sets that do not belong to it alone.
    void replaceSets() {
        std::vector<std::shared_ptr<Set>> sets = extension_->sets();
        const std::size_t what = below(3);
        if (what == 0 && !sets.empty()) {
            sets.pop_back();
            plainExtension_->sets.pop_back();
        } else if (what == 1 && !sets.empty() && sets.size() < 5) {
            sets.push_back(sets.front());
            plainExtension_->sets.push_back(plainExtension_->sets.front());
        } else if (what == 2 && sets.size() < 5 && plainSet_ != nullptr) {
            sets.push_back(set_);
            plainExtension_->sets.push_back(plainSet_);
        }
        extension_->setSets(std::move(sets));
    }

    void reverseFiles() {
        std::vector<std::shared_ptr<File>> files = set_->files();
        std::reverse(files.begin(), files.end());
        set_->setFiles(std::move(files));
        std::reverse(plainSet_->files.begin(), plainSet_->files.end());
    }

    static void reverseExtensions(Modal& modal, PlainModal& plain) {
        std::vector<std::shared_ptr<Extensions>> extensions = modal.extensionsArray();
        std::reverse(extensions.begin(), extensions.end());
        modal.setExtensionsArray(std::move(extensions));
        std::reverse(plain.extensions.begin(), plain.extensions.end());
    }

    void expectEqual(const Extensions& extension, const PlainExtensions& plain) {
        EXPECT_EQ(extension.name(), plain.name);
        EXPECT_EQ(levelOf(extension), levelOf(plain)) << "extension " << plain.name;
        ASSERT_EQ(extension.nummberOfSets(), plain.sets.size());
        for (std::size_t i = 0; i < plain.sets.size(); ++i) {
            expectEqual(*extension.sets()[i], *plain.sets[i]);
        }
    }

    static void expectEqual(const Set& set, const PlainSet& plain) {
        EXPECT_EQ(levelOf(set), levelOf(plain)) << set.nameOfSet();
        EXPECT_EQ(static_cast<int>(set.determineSelfState()), plain.determineSelfState());
        ASSERT_EQ(set.files().size(), plain.files.size());
        for (std::size_t i = 0; i < plain.files.size(); ++i) {
            EXPECT_EQ(set.files()[i]->filePath(), plain.files[i]->path);
            EXPECT_EQ(static_cast<int>(set.files()[i]->state()), plain.files[i]->state);
        }
    }

    static void expectSameLookups(const Modal& modal, const PlainModal& plain) {
        for (const char* name : {"jpg", "png", "gif", "", "tar", "none"}) {
            const PlainExtensions* expected = plain.getExtensionWithName(name);
            const auto found = modal.getExtensionWithName(name);
            ASSERT_EQ(found == nullptr, expected == nullptr) << name;
            if (expected != nullptr) {
                const auto at = std::find_if(
                    plain.extensions.begin(), plain.extensions.end(),
                    [expected](const auto& extension) { return extension.get() == expected; });
                const auto position =
                    static_cast<std::size_t>(std::distance(plain.extensions.begin(), at));
                EXPECT_EQ(found, modal.extensions()[position]) << name;
            }
        }
    }

    std::mt19937_64 random_;
    std::array<Modal, 3> lists_;
    std::array<PlainModal, 3> plainLists_;
    RecordingTrash trash_;
    RecordingTrash plainTrash_;
    std::size_t nextFile_ = 0;

    // The objects of the current step. The set stays chosen if its extension has none.
    std::size_t list_ = 0;
    std::shared_ptr<Extensions> extension_;
    PlainExtensionsPtr plainExtension_;
    std::shared_ptr<Set> set_;
    PlainSetPtr plainSet_;
};

TEST(RandomTree, AgreesWithTheReferenceAfterEveryOperation) {
    for (const std::uint64_t seed : testSeeds(60)) {
        Twins twins(seed);
        for (std::uint64_t operation = 0; operation < 250; ++operation) {
            SCOPED_TRACE(numbered("seed ", seed) + numbered(", operation ", operation));
            twins.step();
            twins.expectEqual();
            if (testing::Test::HasFailure()) {
                return;
            }
        }
    }
}

}  // namespace
}  // namespace tarvin
