// Stands for the program that fetches updates: says what it was given.

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
    // Whole as soon as it is there.
    std::error_code failure;
    std::filesystem::rename(folder / "telling", folder / "told", failure);
    return failure ? 1 : 0;
}
