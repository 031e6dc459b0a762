#include "platform/error.h"
#include "platform/json_reading.h"
#include "support/refusals.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <utility>

namespace corvane {
namespace {

/// What `read` makes of the member "v"; of two, the last counts.
template <class Read>
auto readV(const std::string& json, const Read& read)
{
    const JsonDocument document = parseJson(R"({"v": 0, "other": [{}], "v": )" + json + "}");
    return document.root().optional("v", Null::isMissing, read);
}

TEST(JsonReading, TakesEachKindForItselfAlone)
{
    const std::string v = "The data cannot be read: v ";
    for (const auto& [json, whole] : std::vector<std::pair<std::string, std::int64_t>>{
             {"1", 1}, {"-1.0", -1}, {"-0.0", 0}, {"12e1", 120}, {"9223372036854775807", INT64_MAX}})
        EXPECT_EQ(readV(json, &JsonValue::integer), whole) << json;
    for (const char* json : {"1.9", "true", "1e300", "9223372036854775808", "-9223372036854775809", "\"1\"", "[1]"})
        EXPECT_REFUSED(readV(json, &JsonValue::integer), v + "is not a whole number.") << json;
    for (const auto& [json, number] :
         std::vector<std::pair<std::string, double>>{{"-7", -7}, {"0.1", 0.1}, {"18446744073709551615", 0x1p64}})
        EXPECT_EQ(readV(json, &JsonValue::number), number) << json;
    EXPECT_REFUSED(readV("false", &JsonValue::number), v + "is not a number.");
    EXPECT_REFUSED(readV("\"0\"", &JsonValue::number), v + "is not a number.");
    EXPECT_EQ(readV("true", &JsonValue::boolean), true);
    EXPECT_REFUSED(readV("1", &JsonValue::boolean), v + "is neither true nor false.");
    EXPECT_EQ(readV(R"("\u00e9\ud83c\udfb5\u0000x")", &JsonValue::text), std::string("é🎵\0x", 8));
    EXPECT_EQ(readV("null", &JsonValue::text), std::nullopt);
    EXPECT_REFUSED(readV("0", &JsonValue::text), v + "is not a text.");
    EXPECT_EQ(readV(R"("AP8=")", &JsonValue::bytes), std::string("\0\xff", 2));
    EXPECT_REFUSED(readV(R"("AP8")", &JsonValue::bytes), v + "is not Base64 text.");
    EXPECT_TRUE(readV(R"("8ea1e1d8-10e5-4872-9FF6-759FE19A759B")", &JsonValue::identifier));
    EXPECT_REFUSED(readV("\"8\"", &JsonValue::identifier), v + "is not an identifier.");
}

TEST(JsonReading, NamesThePlaceOfWhatItRefuses)
{
    const JsonDocument document = parseJson(
        R"({"history": {"items": [[], [{"start": 2}, {"start": null}]], "weights": {"a": 1, "Cam 1": []}}})", "It");
    const JsonValue root = document.root();
    const JsonValue history = root.member("history");
    const auto readStart = [](const JsonValue& cut) {
        return cut.optional("start", Null::isRefused, &JsonValue::integer);
    };
    const auto readCuts = [&](const JsonValue& cuts) { return cuts.list(readStart); };
    EXPECT_REFUSED(
        history.member("items").list(readCuts), "It cannot be read: history.items[1][1].start is not a whole number.");
    EXPECT_REFUSED(
        history.member("weights").map(&JsonValue::number),
        "It cannot be read: history.weights[\"Cam 1\"] is not a number.");
    EXPECT_REFUSED(history.member("items").refuse("is odd."), "It cannot be read: history.items is odd.");
    EXPECT_REFUSED(history.member("index"), "It cannot be read: history.index is missing.");
    EXPECT_REFUSED(root.member("index"), "It cannot be read: index is missing.");
    EXPECT_REFUSED(root.list(readCuts), "It cannot be read: it is not a list.");
}

TEST(JsonReading, KeepsTextsApartHoweverTheyAreWritten)
{
    const std::vector<std::string> meant = {"", "\"", "a\"a\"", "plain", "\\\\", "\xc3\xa9", "plain", "\n"};
    const JsonDocument document = parseJson(
        "\xef\xbb\xbf[\"\", \"\\\"\", \"a\\\"a\\\"\", \"plain\", \"\\\\\\\\\", \"\\u00e9\", \"pl\\u0061in\", \"\\n\"]");
    EXPECT_EQ(document.root().list(&JsonValue::text), meant);
    const JsonDocument alone = parseJson("-12.5");
    EXPECT_EQ(alone.root().number(), -12.5) << "the document ends with its number";
}

TEST(JsonReading, RefusesWhatIsNoJson)
{
    for (const char* json :
         {"", "{\"a\":1,}", "[1 2]", "nul", "[01]", "[1.]", "[NaN]", "[1e400]", "[1e-400]", "[] []", "['a']",
          "[\"\\ud800\"]", "[\"\xc3\"]", "[\"\xed\xa0\x80\"]", "[\"\n\"]", "{1:2}", "// x\n[]"})
        EXPECT_THROW((void)parseJson(json), PlatformError) << json;
    EXPECT_REFUSED(
        parseJson("{\n  \"a\" 1}", "It"),
        "It cannot be read: line 2, column 7: unexpected number literal; expected ':'.");
    EXPECT_REFUSED(
        parseJson("[\"" + std::string(10'000, 'x'), "It"),
        "It cannot be read: line 1, column 10003: invalid string: missing closing quote.")
        << "the text itself is left out";
    EXPECT_REFUSED(
        parseJson(std::string("[]\0", 3)),
        "The data cannot be read: line 1, column 3: something follows the end of the data.");
    EXPECT_THROW((void)parseJson(std::string("1\0 more", 7)), PlatformError);
    EXPECT_NO_THROW((void)parseJson(std::string(256, '[') + std::string(256, ']')));
    EXPECT_REFUSED(
        parseJson(std::string(300'000, '[')),
        "The data cannot be read: line 1, column 257: lists and objects are nested too deeply.");
}

} // namespace
} // namespace corvane
