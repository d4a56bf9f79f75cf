#include "corpus_writer.h"

#include "random.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace tarvin::bench {
namespace {

constexpr std::size_t bufferBytes = 1024 * 1024;  // a multiple of eight, see Random::fill
constexpr std::uint64_t tailBytes = 16;
constexpr std::size_t folderFanOut = 5;

bool fail(const char* what, const std::string& path) {
    const std::string text = std::string("make_corpus: ") + what + " " + path;
    std::perror(text.c_str());
    return false;
}

std::string numbered(std::string_view stem, std::uint64_t number, std::string_view suffix) {
    std::array<char, 24> digits{};
    std::snprintf(digits.data(), digits.size(), "%06llu", static_cast<unsigned long long>(number));
    return std::string(stem).append(digits.data()).append(suffix);
}

bool writeAll(int descriptor, std::span<const char> bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0) {
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

}  // namespace

CorpusWriter::CorpusWriter(const CorpusPlan& plan, std::uint64_t seed)
    : plan_(plan), seed_(seed), head_(plan.headBytes), buffer_(bufferBytes) {
    Random(streamSeed(0)).fill(head_);
}

bool CorpusWriter::write(const std::string& out) {
    if (!makeFolders(out)) {
        return false;
    }
    for (std::size_t i = 0; i < plan_.files.size(); ++i) {
        const PlannedFile& file = plan_.files[i];
        const std::string name = numbered(file.name->stem, i, file.name->extension);
        const std::string path = folders_[file.folder] + "/" + name;
        if (!writeFile(path, file)) {
            return fail("cannot write", path);
        }
        bytes_ += file.size;
    }
    return true;
}

/// The folders form a tree of fixed fan-out, roughly like a user's folders, with files at every
/// level.
bool CorpusWriter::makeFolders(const std::string& out) {
    folders_.assign(1, out);
    while (folders_.size() < plan_.folders) {
        const std::size_t number = folders_.size();
        const std::string& parent = folders_[(number - 1) / folderFanOut];
        folders_.push_back(numbered(parent + "/folder-", number, ""));
    }
    for (const std::string& path : folders_) {
        if (::mkdir(path.c_str(), 0755) != 0) {
            return fail("cannot make", path);
        }
    }
    return true;
}

bool CorpusWriter::writeFile(const std::string& path, const PlannedFile& file) {
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    if (descriptor < 0) {
        return false;
    }
    const bool written = plan_.sparse ? ::ftruncate(descriptor, static_cast<off_t>(file.size)) == 0
                                      : writeContent(descriptor, file);
    return ::close(descriptor) == 0 && written;
}

bool CorpusWriter::writeContent(int descriptor, const PlannedFile& file) {
    Random stream(streamSeed(file.body));
    for (std::uint64_t offset = 0; offset < file.size;) {
        const std::size_t length = std::min<std::uint64_t>(bufferBytes, file.size - offset);
        const std::span<char> block = std::span(buffer_).first(length);
        stream.fill(block);
        if (offset == 0) {
            overlayHead(block);
        }
        if (file.tail != 0) {
            overlayTail(block, offset, file);
        }
        if (!writeAll(descriptor, block)) {
            return false;
        }
        offset += length;
    }
    return true;
}

void CorpusWriter::overlayHead(std::span<char> firstBlock) const {
    std::copy_n(head_.begin(), std::min(head_.size(), firstBlock.size()), firstBlock.begin());
}

/// Writes the part of the file's tail that is in the block at `offset`.
void CorpusWriter::overlayTail(std::span<char> block, std::uint64_t offset,
                               const PlannedFile& file) const {
    std::array<char, tailBytes> tail{};
    Random(~streamSeed(file.tail)).fill(tail);
    const std::uint64_t tailStart = file.size - tailBytes;
    for (std::size_t i = 0; i < tail.size(); ++i) {
        const std::uint64_t position = tailStart + i;
        if (position >= offset && position < offset + block.size()) {
            block[position - offset] = tail[i];
        }
    }
}

/// The number is mixed before it is used as a seed: streams must not overlap.
std::uint64_t CorpusWriter::streamSeed(std::uint64_t number) const {
    return Random(seed_ ^ Random(number).next()).next();
}

}  // namespace tarvin::bench
