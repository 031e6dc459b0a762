#include "export/written_size.h"

#include "base/numbers.h"
#include "import/final_cut_import_error.h"
#include "xml/writing.h"

#include <algorithm>

namespace corvane {

namespace {

std::string sizeText(std::size_t bytes)
{
    const auto kilobytes = static_cast<double>(bytes) / 1024;
    return kilobytes < 100 ? fixed(kilobytes, 1) + " kB" : fixed(kilobytes / 1024, 1) + " MB";
}

} // namespace

void WrittenSize::add(std::string_view kind, std::size_t bytes, std::size_t times)
{
    auto known = kinds_.find(kind);
    if (known == kinds_.end())
        known = kinds_.emplace(kind, Kind()).first;
    ++known->second.items;
    known->second.bytes += bytes;
    known->second.written += bytes * times; // cannot overflow: both document and cuts fit in memory
    bytes_ += bytes * times;
}

bool WrittenSize::isTooLarge() const
{
    return bytes_ > xml::mostWritten;
}

void WrittenSize::check(std::size_t written) const
{
    if (!isTooLarge() && written <= xml::mostWritten)
        return;
    std::string message = "The finished project would be larger than 512 MB, so it was not written.";
    const auto largest = std::ranges::max_element(kinds_, {}, [](const auto& kind) { return kind.second.written; });
    if (largest != kinds_.end()) {
        const auto& [kind, size] = *largest;
        message += " Its " + std::to_string(clips_) + " clips repeat the multicam clip's “" + kind +
                   "”: " + (size.items == 1 ? "" : std::to_string(size.items) + " items, ") + sizeText(size.bytes) +
                   ".";
    }
    throw FinalCutImportError::invalid(message + " Remove what is not needed in Final Cut and export XML again.");
}

} // namespace corvane
