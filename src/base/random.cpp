#include "base/random.h"

#include "base/error.h"

#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstring>

namespace corvane {

namespace {

/// The most bytes that one call of getentropy returns. Fetching whole blocks keeps the cost of a draw at a few
/// nanoseconds.
constexpr std::size_t blockSize = 256;

class EntropyBuffer {
public:
    void take(std::byte* to, std::size_t count)
    {
        while (count > 0) {
            if (used_ == blockSize)
                refill();
            const std::size_t some = std::min(count, blockSize - used_);
            std::memcpy(to, block_.data() + used_, some);
            used_ += some;
            to += some;
            count -= some;
        }
    }

private:
    void refill()
    {
        if (getentropy(block_.data(), blockSize) != 0)
            throw PlatformError("The system's random number generator returned no data.");
        used_ = 0;
    }

    std::array<std::byte, blockSize> block_{};
    std::size_t used_ = blockSize;
};

EntropyBuffer& entropy()
{
    thread_local EntropyBuffer buffer;
    return buffer;
}

} // namespace

RandomNumbers secureRandomNumbers()
{
    return [] {
        std::array<std::byte, sizeof(std::uint64_t)> bytes{};
        entropy().take(bytes.data(), bytes.size());
        std::uint64_t bits = 0;
        std::memcpy(&bits, bytes.data(), sizeof bits);
        return static_cast<double>(bits >> 11) * 0x1p-53;
    };
}

void fillWithRandomBytes(std::span<std::byte> bytes)
{
    entropy().take(bytes.data(), bytes.size());
}

} // namespace corvane
