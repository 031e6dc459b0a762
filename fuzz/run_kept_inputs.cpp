// Runs a target without a fuzzer, on files and folders of inputs, so that every build tests the kept inputs.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** arguments)
{
    int inputs = 0;
    for (int number = 1; number < count; ++number) {
        for (const auto& entry : std::filesystem::directory_iterator(arguments[number])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
            std::cerr << entry.path().string() << '\n'; // the last name printed is the input that failed
            (void)LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
            ++inputs;
        }
    }
    std::cout << inputs << " inputs\n";
    return inputs > 0 ? 0 : 1;
}
