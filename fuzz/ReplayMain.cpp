// Runs a fuzzer's entry point over every file of the folders given as arguments, so that inputs
// which once failed stay tested by compilers that have no libFuzzer.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv)
{
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            if (!entry.is_regular_file()) {
                continue;
            }
            // Named before it runs: a crash then says which input it was.
            std::printf("%s\n", entry.path().string().c_str());
            std::fflush(stdout);
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<char> bytes(std::istreambuf_iterator<char>(file), {});
            const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
            LLVMFuzzerTestOneInput(input.data(), input.size());
            ++files;
        }
    }
    if (files == 0) {
        std::fprintf(stderr, "no input found: give folders that hold files\n");
        return 1;
    }
    std::printf("%d inputs replayed\n", files);
    return 0;
}
