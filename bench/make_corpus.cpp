// Makes the file trees for the comparison of duplicate finders. The same kind, seed and size always
// give the same tree: names, sizes and contents come from one generator.

#include "corpus_plan.h"
#include "corpus_writer.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <cstdio>
#include <map>
#include <string>

namespace {

using tarvin::bench::CorpusKind;
using tarvin::bench::CorpusPlan;
using tarvin::bench::CorpusRequest;
using tarvin::bench::CorpusWriter;
using tarvin::bench::planCorpus;

constexpr double maxScale = 1000;
constexpr std::uint64_t maxFiles = 100'000'000;

void addOptions(CLI::App& app, CorpusRequest& request, std::string& out) {
    const std::map<std::string, CorpusKind> kinds{
        {"small", CorpusKind::small},     {"fewsizes", CorpusKind::fewsizes},
        {"onesize", CorpusKind::onesize}, {"late", CorpusKind::late},
        {"photos", CorpusKind::photos},   {"walk", CorpusKind::walk}};
    app.add_option("--kind", request.kind, "Kind of tree")
        ->required()
        ->transform(CLI::Transformer(kinds))
        ->option_text("small|fewsizes|onesize|late|photos|walk");
    app.add_option("--out", out, "New folder for the tree")->required();
    app.add_option("--seed", request.seed, "Seed of names, sizes and contents [default: 1]");
    app.add_option("--scale", request.scale, "Factor for the kind's number of files")
        ->check(CLI::Range(0.0, maxScale));
    app.add_option("--files", request.files, "Number of files (late: a multiple of 4)")
        ->check(CLI::Range(std::uint64_t{1}, maxFiles));
    app.add_option("--copies", request.copiesPercent,
                   "Percentage of copies (not for late and walk)")
        ->check(CLI::Range(0, 100));
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Makes a file tree for the comparison of duplicate finders.");
    CorpusRequest request;
    std::string out;
    addOptions(app, request, out);
    CLI11_PARSE(app, argc, argv);

    const CorpusPlan plan = planCorpus(request);
    CorpusWriter writer(plan, request.seed);
    if (!writer.write(out)) {
        return 1;
    }
    std::printf("files %zu\nfolders %zu\nbytes %llu\n", plan.files.size(), plan.folders,
                static_cast<unsigned long long>(writer.bytes()));
    return 0;
}
