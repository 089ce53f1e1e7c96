// Replays fuzz inputs through a target's LLVMFuzzerTestOneInput without libFuzzer, so
// that any compiler and any sanitizer build runs the corpus and the regression inputs.
// Arguments are files or folders (their files, in name order); the empty input runs first.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv)
{
    namespace fs = std::filesystem;
    std::vector<fs::path> files;
    for (int i = 1; i < argc; ++i) {
        const fs::path argument(argv[i]);
        if (fs::is_directory(argument)) {
            std::vector<fs::path> inFolder;
            for (const fs::directory_entry& entry : fs::directory_iterator(argument)) {
                if (entry.is_regular_file())
                    inFolder.push_back(entry.path());
            }
            std::sort(inFolder.begin(), inFolder.end());
            files.insert(files.end(), inFolder.begin(), inFolder.end());
        } else if (fs::is_regular_file(argument)) {
            files.push_back(argument);
        } else {
            std::fprintf(stderr, "no such input: %s\n", argv[i]);
            return 2;
        }
    }
    LLVMFuzzerTestOneInput(nullptr, 0);
    for (const fs::path& file : files) {
        std::fprintf(stderr, "%s\n", file.string().c_str());
        std::ifstream stream(file, std::ios::binary);
        const std::vector<char> bytes((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
    std::printf("replayed %zu inputs\n", files.size());
    return files.empty() ? 1 : 0;
}
