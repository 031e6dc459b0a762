#include "base/error.h"
#include "fuzz/target.h"
#include "import/final_cut_import_error.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>

/// The entry point for the fuzzer, or for the program that runs the kept inputs. A broken promise or an unexpected
/// exception ends the process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string broken;
    try {
        broken = runFuzzInput({reinterpret_cast<const char*>(data), size});
    } catch (const corvane::FinalCutImportError&) {
        return 0;
    } catch (const corvane::PlatformError&) {
        return 0;
    }
    if (broken.empty())
        return 0;
    std::cerr << "Broken promise: " << broken << '\n';
    std::abort();
}
