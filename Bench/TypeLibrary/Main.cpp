// typelib_slots TYPE-LIBRARY [--check LISTING]: prints the interfaces of a type library, or their differences from the
// listing. Exits with 0, with 1 for differences, or with 2 on an error.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "TypeLibrary.h"

namespace {

int Run(const std::vector<std::string>& words) {
    if (words.size() != 1 && !(words.size() == 3 && words[1] == "--check")) {
        std::puts("typelib_slots TYPE-LIBRARY [--check LISTING]");
        return 2;
    }
    const std::vector<bench::ComInterface> library = bench::ReadTypeLibrary(words[0]);
    if (words.size() == 1) {
        std::fputs(bench::Listing(library).c_str(), stdout);
        return 0;
    }
    const std::vector<bench::ComInterface> expected = bench::ReadListing(words[2]);
    const std::vector<std::string> differences = bench::Differences(expected, library);
    for (const std::string& sentence : differences)
        std::puts(sentence.c_str());
    std::printf("%zu interfaces compared, %zu differences\n", expected.size(), differences.size());
    return differences.empty() ? 0 : 1;
}

}  // namespace

int main(int count, char** words) {
    try {
        return Run(std::vector<std::string>(words + 1, words + count));
    } catch (const std::exception& error) {
        std::printf("typelib_slots: %s\n", error.what());
        return 2;
    }
}
