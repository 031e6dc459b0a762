#include "intake/final_cut/apple_event_descriptor.h"

#include "base/file_url.h"

#include <unicode/unistr.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <array>
#include <limits>

namespace corvane {

namespace {

constexpr FourCharacterCode nullType = "null", codeType = "type", enumeratedType = "enum", textType = "utf8";
constexpr FourCharacterCode booleanType = "bool", integerType = "long", fileURLType = "furl", listType = "list";
constexpr FourCharacterCode recordType = "reco", specifierType = "obj ";
constexpr std::array specifierKeys = {
    FourCharacterCode("want"), FourCharacterCode("form"), FourCharacterCode("seld"), FourCharacterCode("from")};

std::string bigEndian(std::uint32_t value)
{
    std::string bytes;
    for (const unsigned shift : {24U, 16U, 8U, 0U})
        bytes += static_cast<char>(value >> shift & 0xFFU);
    return bytes;
}

/// `bytes` must have four bytes.
std::uint32_t fromBigEndian(std::string_view bytes)
{
    std::uint32_t value = 0;
    for (const char byte : bytes)
        value = value << 8U | static_cast<unsigned char>(byte);
    return value;
}

/// ICU's lengths are 32-bit numbers.
constexpr std::size_t longestText = std::numeric_limits<std::int32_t>::max();

bool isUTF8(std::string_view text)
{
    if (text.size() > longestText)
        return false;
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t units = 0;
    u_strFromUTF8(nullptr, 0, &units, text.data(), static_cast<std::int32_t>(text.size()), &status);
    return U_SUCCESS(status) || status == U_BUFFER_OVERFLOW_ERROR; // overflow: it is well-formed, but does not fit
}

std::string withoutMalformedBytes(std::string_view text)
{
    text = text.substr(0, longestText);
    std::string whole;
    icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())))
        .toUTF8String(whole);
    return whole;
}

} // namespace

AppleEventDescriptor AppleEventDescriptor::typeCode(FourCharacterCode code)
{
    return {codeType, Shape::bytes, bigEndian(code.value)};
}

AppleEventDescriptor AppleEventDescriptor::enumerated(FourCharacterCode code)
{
    return {enumeratedType, Shape::bytes, bigEndian(code.value)};
}

AppleEventDescriptor AppleEventDescriptor::text(std::string_view text)
{
    return {textType, Shape::bytes, isUTF8(text) ? std::string(text) : withoutMalformedBytes(text)};
}

AppleEventDescriptor AppleEventDescriptor::boolean(bool value)
{
    return {booleanType, Shape::bytes, std::string(1, value ? '\1' : '\0')};
}

AppleEventDescriptor AppleEventDescriptor::integer(std::int32_t value)
{
    return {integerType, Shape::bytes, bigEndian(static_cast<std::uint32_t>(value))};
}

AppleEventDescriptor AppleEventDescriptor::fileURL(std::string_view path)
{
    return {fileURLType, Shape::bytes, fileURLText(path)};
}

AppleEventDescriptor AppleEventDescriptor::list(std::vector<AppleEventDescriptor> items)
{
    AppleEventDescriptor list(listType, Shape::list, {});
    list.items_ = std::move(items);
    return list;
}

AppleEventDescriptor AppleEventDescriptor::record(std::vector<Field> fields)
{
    AppleEventDescriptor record(recordType, Shape::record, {});
    record.keys_.reserve(fields.size());
    record.items_.reserve(fields.size());
    for (auto& [key, value] : fields) {
        record.keys_.push_back(key);
        record.items_.push_back(std::move(value));
    }
    return record;
}

AppleEventDescriptor AppleEventDescriptor::emptyRecord()
{
    return record({});
}

std::optional<AppleEventDescriptor> AppleEventDescriptor::bytesOf(FourCharacterCode type, std::string bytes)
{
    if (type == listType || type == recordType || type == specifierType)
        return std::nullopt;
    return AppleEventDescriptor(type, Shape::bytes, std::move(bytes));
}

const AppleEventDescriptor* AppleEventDescriptor::field(FourCharacterCode key) const
{
    const auto place = std::ranges::find(keys_, key) - keys_.begin();
    return static_cast<std::size_t>(place) < keys_.size() ? &items_[static_cast<std::size_t>(place)] : nullptr;
}

bool AppleEventDescriptor::holds(FourCharacterCode type, std::size_t size) const
{
    return type_ == type && bytes_.size() == size; // such types never have another shape, which coerced() ensures
}

std::optional<FourCharacterCode> AppleEventDescriptor::asTypeCode() const
{
    return holds(codeType, 4) ? std::optional(FourCharacterCode(fromBigEndian(bytes_))) : std::nullopt;
}

std::optional<FourCharacterCode> AppleEventDescriptor::asEnumerated() const
{
    return holds(enumeratedType, 4) ? std::optional(FourCharacterCode(fromBigEndian(bytes_))) : std::nullopt;
}

std::optional<std::string> AppleEventDescriptor::asText() const
{
    return holds(textType, bytes_.size()) && isUTF8(bytes_) ? std::optional(bytes_) : std::nullopt;
}

std::optional<bool> AppleEventDescriptor::asBoolean() const
{
    if (!holds(booleanType, 1) || (bytes_[0] != '\0' && bytes_[0] != '\1'))
        return std::nullopt;
    return bytes_[0] == '\1';
}

std::optional<std::int32_t> AppleEventDescriptor::asInteger() const
{
    return holds(integerType, 4) ? std::optional(static_cast<std::int32_t>(fromBigEndian(bytes_))) : std::nullopt;
}

std::optional<std::string> AppleEventDescriptor::asFileURL() const
{
    return holds(fileURLType, bytes_.size()) ? pathOfFileURL(bytes_) : std::nullopt;
}

std::optional<AppleEventDescriptor> AppleEventDescriptor::coerced(FourCharacterCode type) const
{
    static constexpr std::array notRecords = {nullType,    codeType,    enumeratedType, textType,
                                              booleanType, integerType, fileURLType,    listType};
    if (shape_ != Shape::record || std::ranges::find(notRecords, type) != notRecords.end())
        return std::nullopt;
    if (type == specifierType && !std::ranges::all_of(specifierKeys, [&](auto key) { return field(key) != nullptr; }))
        return std::nullopt;
    AppleEventDescriptor other = *this;
    other.type_ = type;
    return other;
}

} // namespace corvane
