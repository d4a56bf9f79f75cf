// A fake updater: writes its arguments into a file.

#include <filesystem>
#include <fstream>
#include <span>
#include <system_error>

int main(int argc, char** argv) {
    const std::filesystem::path folder = std::filesystem::path(argv[0]).parent_path();
    {
        std::ofstream told(folder / "telling");
        for (const char* argument :
             std::span<char* const>(argv, static_cast<std::size_t>(argc)).subspan(1)) {
            told << argument << '\n';
        }
    }
    // Renamed into place, so that it is complete once it exists.
    std::error_code failure;
    std::filesystem::rename(folder / "telling", folder / "told", failure);
    return failure ? 1 : 0;
}
