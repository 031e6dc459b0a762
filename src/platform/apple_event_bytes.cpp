#include "platform/apple_event_bytes.h"

#include "platform/error.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace corvane {

namespace {

using Shape = AppleEventDescriptor::Shape;

constexpr std::size_t keySize = 4;
constexpr std::size_t headSize = 9; // type, shape and count

void appendNumber(std::string& out, std::uint32_t value)
{
    for (const unsigned shift : {24U, 16U, 8U, 0U})
        out += static_cast<char>(value >> shift & 0xFFU);
}

void append(std::string& out, const AppleEventDescriptor& descriptor, unsigned levels)
{
    if (levels == 0)
        throw PlatformError("The Apple Event data is nested too deeply.");
    const bool plain = descriptor.shape() == Shape::bytes;
    const std::size_t count = plain ? descriptor.bytes().size() : descriptor.items().size();
    if (count > std::numeric_limits<std::uint32_t>::max())
        throw PlatformError("The Apple Event data is too large.");
    appendNumber(out, descriptor.type().value);
    out += static_cast<char>(descriptor.shape());
    appendNumber(out, static_cast<std::uint32_t>(count));
    out += descriptor.bytes();
    for (std::size_t n = 0; n < descriptor.items().size(); ++n) {
        if (descriptor.shape() == Shape::record)
            appendNumber(out, descriptor.keys()[n].value);
        append(out, descriptor.items()[n], levels - 1);
    }
}

bool haveTwins(const std::vector<AppleEventDescriptor::Field>& fields)
{
    std::vector<FourCharacterCode> keys;
    keys.reserve(fields.size());
    for (const auto& [key, value] : fields)
        keys.push_back(key);
    std::ranges::sort(keys);
    return std::ranges::adjacent_find(keys) != keys.end();
}

/// Takes descriptors from the front of the bytes.
class Reader {
public:
    explicit Reader(std::string_view bytes) : rest_(bytes) {}

    [[nodiscard]] bool isAtEnd() const { return rest_.empty(); }

    std::optional<AppleEventDescriptor> descriptor(unsigned levels)
    {
        if (levels == 0 || rest_.size() < headSize)
            return std::nullopt;
        const FourCharacterCode type(number());
        const char shape = take(1).front();
        const std::size_t count = number();
        if (shape == static_cast<char>(Shape::bytes) && count <= rest_.size())
            return AppleEventDescriptor::bytesOf(type, std::string(take(count)));
        if (shape == static_cast<char>(Shape::list) && type == FourCharacterCode("list"))
            return list(count, levels - 1);
        if (shape == static_cast<char>(Shape::record))
            return record(type, count, levels - 1);
        return std::nullopt;
    }

private:
    /// No room is made for what a count promises: a lie ends where the bytes do.
    std::optional<AppleEventDescriptor> list(std::size_t count, unsigned levels)
    {
        std::vector<AppleEventDescriptor> items;
        for (; count > 0; --count) {
            auto item = descriptor(levels);
            if (!item)
                return std::nullopt;
            items.push_back(*std::move(item));
        }
        return AppleEventDescriptor::list(std::move(items));
    }

    std::optional<AppleEventDescriptor> record(FourCharacterCode type, std::size_t count, unsigned levels)
    {
        std::vector<AppleEventDescriptor::Field> fields;
        for (; count > 0; --count) {
            if (rest_.size() < keySize)
                return std::nullopt;
            const FourCharacterCode key(number());
            auto value = descriptor(levels);
            if (!value)
                return std::nullopt;
            fields.push_back({key, *std::move(value)});
        }
        if (haveTwins(fields))
            return std::nullopt;
        return AppleEventDescriptor::record(std::move(fields)).coerced(type);
    }

    /// There must be as many bytes left.
    std::string_view take(std::size_t count)
    {
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(count);
        return taken;
    }

    std::uint32_t number()
    {
        std::uint32_t value = 0;
        for (const char byte : take(sizeof value))
            value = value << 8U | static_cast<unsigned char>(byte);
        return value;
    }

    std::string_view rest_;
};

} // namespace

std::string encodedDescriptor(const AppleEventDescriptor& descriptor)
{
    std::string bytes;
    append(bytes, descriptor, deepestNesting);
    return bytes;
}

std::optional<AppleEventDescriptor> decodedDescriptor(std::string_view bytes)
{
    Reader reader(bytes);
    auto descriptor = reader.descriptor(deepestNesting);
    return reader.isAtEnd() ? std::move(descriptor) : std::nullopt;
}

} // namespace corvane
