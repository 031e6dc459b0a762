#pragma once

#include "intake/final_cut/four_character_code.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

/// One piece of Apple Event data: a type code with bytes, a list, or a record of keyed fields in order. It comes from
/// another program, so nothing in it is trusted: readers return none unless type, shape and bytes are all valid.
class AppleEventDescriptor {
public:
    enum class Shape : std::uint8_t { bytes, list, record };
    struct Field;

    /// The null descriptor.
    AppleEventDescriptor() = default;
    bool operator==(const AppleEventDescriptor&) const = default;

    [[nodiscard]] static AppleEventDescriptor typeCode(FourCharacterCode code);
    [[nodiscard]] static AppleEventDescriptor enumerated(FourCharacterCode code);
    /// A UTF-8 text. Malformed bytes are replaced with U+FFFD, so that the receiver can read every text.
    [[nodiscard]] static AppleEventDescriptor text(std::string_view text);
    [[nodiscard]] static AppleEventDescriptor boolean(bool value);
    [[nodiscard]] static AppleEventDescriptor integer(std::int32_t value);
    /// `path` is absolute, and ends in "/" if it is a folder.
    [[nodiscard]] static AppleEventDescriptor fileURL(std::string_view path);
    [[nodiscard]] static AppleEventDescriptor list(std::vector<AppleEventDescriptor> items);
    /// A record of the general type 'reco'. If two fields have the same key, the first one is used.
    [[nodiscard]] static AppleEventDescriptor record(std::vector<Field> fields);
    [[nodiscard]] static AppleEventDescriptor emptyRecord();
    /// Unchanged bytes of any type; none for types that are a list or a record.
    [[nodiscard]] static std::optional<AppleEventDescriptor> bytesOf(FourCharacterCode type, std::string bytes);

    [[nodiscard]] FourCharacterCode type() const { return type_; }
    [[nodiscard]] Shape shape() const { return shape_; }
    /// Empty for lists and records.
    [[nodiscard]] const std::string& bytes() const { return bytes_; }
    /// The items of a list, the values of a record in the order of its keys.
    [[nodiscard]] std::span<const AppleEventDescriptor> items() const { return items_; }
    [[nodiscard]] std::span<const FourCharacterCode> keys() const { return keys_; }
    /// The field of a record of any type, including object specifiers; null if there is no such field.
    [[nodiscard]] const AppleEventDescriptor* field(FourCharacterCode key) const;

    [[nodiscard]] std::optional<FourCharacterCode> asTypeCode() const;
    [[nodiscard]] std::optional<FourCharacterCode> asEnumerated() const;
    /// None also for malformed UTF-8.
    [[nodiscard]] std::optional<std::string> asText() const;
    [[nodiscard]] std::optional<bool> asBoolean() const;
    [[nodiscard]] std::optional<std::int32_t> asInteger() const;
    /// The path of a file on this computer, as pathOfFileURL reads it.
    [[nodiscard]] std::optional<std::string> asFileURL() const;

    /// The same content with another type. A record of any type can become a record of another type, but an object
    /// specifier ('obj ') only if it has the fields 'want', 'form', 'seld' and 'from'. None for anything else.
    [[nodiscard]] std::optional<AppleEventDescriptor> coerced(FourCharacterCode type) const;

private:
    AppleEventDescriptor(FourCharacterCode type, Shape shape, std::string bytes)
        : type_(type), shape_(shape), bytes_(std::move(bytes))
    {
    }
    /// True for exactly `size` bytes of this type.
    [[nodiscard]] bool holds(FourCharacterCode type, std::size_t size) const;

    FourCharacterCode type_ = "null";
    Shape shape_ = Shape::bytes;
    std::string bytes_;
    std::vector<FourCharacterCode> keys_; ///< of a record: one for each item
    std::vector<AppleEventDescriptor> items_;
};

struct AppleEventDescriptor::Field {
    FourCharacterCode key;
    AppleEventDescriptor value;
};

} // namespace corvane
