// Makes the file trees that the finders are compared on. The same kind, seed and size always give
// the same tree: names, sizes and contents come from one generator and nothing else.

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

constexpr double largestScale = 1000;
constexpr std::uint64_t mostFiles = 100'000'000;

void addOptions(CLI::App& app, CorpusRequest& request, std::string& out) {
    const std::map<std::string, CorpusKind> kinds{{"small", CorpusKind::small},
                                                  {"onesize", CorpusKind::onesize},
                                                  {"late", CorpusKind::late},
                                                  {"photos", CorpusKind::photos},
                                                  {"walk", CorpusKind::walk}};
    app.add_option("--kind", request.kind, "which tree")
        ->required()
        ->transform(CLI::Transformer(kinds))
        ->option_text("small|onesize|late|photos|walk");
    app.add_option("--out", out, "the tree's folder, which must not be there yet")->required();
    app.add_option("--seed", request.seed, "another seed, another tree of the same shape");
    app.add_option("--scale", request.scale, "times the kind's own number of files")
        ->check(CLI::Range(0.0, largestScale));
    app.add_option("--files", request.files, "exactly so many files (late: in fours)")
        ->check(CLI::Range(std::uint64_t{1}, mostFiles));
    app.add_option("--copies", request.copiesPercent,
                   "so many files in a hundred are copies (not for late and walk)")
        ->check(CLI::Range(0, 100));
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Makes a file tree to compare duplicate finders on.");
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
