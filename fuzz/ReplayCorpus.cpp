// Runs a fuzz target over the files of its seed corpus, and over each of them cut short at every length up to
// a limit, where no fuzzing engine is linked in.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) return 2;
    constexpr std::size_t kLongestCut = 512;
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(arguments[1])) {
        std::ifstream stream(entry.path(), std::ios::binary);
        const std::vector<char> text{std::istreambuf_iterator<char>(stream), {}};
        const std::vector<std::uint8_t> bytes(text.begin(), text.end());
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
        for (std::size_t length = 0; length < bytes.size() && length < kLongestCut; ++length) {
            // A copy of the exact length, so that the sanitizer sees a read past its end.
            const std::vector<std::uint8_t> cut(bytes.begin(),
                                                bytes.begin() + static_cast<std::ptrdiff_t>(length));
            LLVMFuzzerTestOneInput(cut.data(), cut.size());
        }
        ++files;
    }
    std::printf("%d corpus files\n", files);
    return files > 0 ? 0 : 1;
}
