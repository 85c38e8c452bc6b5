// Drives the fuzz targets without libFuzzer: through the files of their corpus and through mutations of them,
// the same ones in every run. The input under way stands in a file beside the program, which stays when a
// target ends it.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "Input.h"

namespace blattwart::fuzz {
namespace {

constexpr std::size_t mostMutations = 2000;
constexpr std::size_t mostBytes = 1'000'000;  // in all mutations, for large inputs take long

std::vector<std::string> corpusIn(const std::string& folder) {
    std::set<std::filesystem::path> files;  // in the same order on every machine
    for (const auto& entry : std::filesystem::directory_iterator(folder)) files.insert(entry.path());
    std::vector<std::string> corpus;
    for (const auto& file : files) {
        std::ifstream stream(file, std::ios::binary);
        corpus.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }
    return corpus;
}

/// Some bytes left out, others in their place.
std::string mutated(std::string bytes, const std::string& other, std::minstd_rand& random) {
    const auto upTo = [&](std::size_t limit) { return random() % (limit + 1); };
    for (std::size_t changes = 1 + upTo(3); changes > 0; --changes) {
        const std::size_t at = upTo(bytes.size());
        bytes.erase(at, upTo(8));
        bytes.insert(at, other, upTo(other.size()), upTo(8));
        if (upTo(1) == 0) bytes.insert(at, 1, static_cast<char>(random()));
    }
    return bytes;
}

void replay(const std::string& name, void (*target)(const std::uint8_t*, std::size_t)) {
    const std::string current = FUZZ_INPUTS "/" + name + ".input";
    const auto run = [&](const std::string& bytes) {
        std::ofstream(current, std::ios::binary) << bytes;
        target(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    };
    const std::vector<std::string> corpus = corpusIn(FUZZ_CORPUS "/" + name);
    for (const std::string& bytes : corpus) run(bytes);
    std::minstd_rand random;
    std::size_t done = 0;
    for (std::size_t i = 0; i < mostMutations && done < mostBytes; ++i) {
        const std::string& bytes = corpus.at(random() % corpus.size());
        run(mutated(bytes, corpus.at(random() % corpus.size()), random));
        done += bytes.size();
    }
    std::filesystem::remove(current);
}

TEST(Fuzz, CommandText) {
    replay("CommandTextFuzz", fuzzCommandText);
}

TEST(Fuzz, Database) {
    replay("DatabaseFuzz", fuzzDatabase);
}

TEST(Fuzz, ExtendedData) {
    replay("ExtendedDataFuzz", fuzzExtendedData);
}

TEST(Fuzz, PreviewPicture) {
    replay("PreviewPictureFuzz", fuzzPreviewPicture);
}

TEST(Fuzz, Settings) {
    replay("SettingsFuzz", fuzzSettings);
}

}  // namespace
}  // namespace blattwart::fuzz
