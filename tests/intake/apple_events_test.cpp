#include "intake/final_cut/apple_event_manager.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace corvane {
namespace {

using namespace std::string_literals;
using Code = FourCharacterCode;
using D = AppleEventDescriptor;

const std::vector<D> values = {D::typeCode("aset"), D::enumerated("ID  "), D::text("Ünï\0 ✂"s),
                               D::boolean(true),    D::integer(-1728),     D::fileURL("/a b/ü#?%.fcpxmld/")};
const D fields = D::record({{"want", values[0]}, {"form", values[1]}, {"seld", values[2]}, {"from", D()}});
const D everything = D::record(
    {{"user", *D::record({{"meta", D::list(values)}}).coerced("usrf")},
     {"spec", *fields.coerced("obj ")},
     {"doub", *D::bytesOf("doub", "\x40\x09\xff\0"s)}});

/// The readers that answer, a letter each.
std::string answering(const D& d)
{
    return (d.asTypeCode() ? "c"s : "") + (d.asEnumerated() ? "e" : "") + (d.asText() ? "t" : "") +
           (d.asBoolean() ? "b" : "") + (d.asInteger() ? "i" : "") + (d.asFileURL() ? "f" : "");
}

TEST(AppleEventDescriptors, AreReadOnlyAsWhatTheyAre)
{
    std::string letters;
    for (const D& value : values)
        letters += answering(value);
    EXPECT_EQ(letters, "cetbif");
    EXPECT_TRUE(values[1].asEnumerated() == Code("ID  ") && values[1].bytes() == "ID  ");
    EXPECT_TRUE(values[2].asText() == "Ünï\0 ✂"s && values[3].asBoolean() == true && values[4].asInteger() == -1728);
    EXPECT_EQ(values[5].bytes(), "file:///a%20b/%C3%BC%23%3F%25.fcpxmld/");
    EXPECT_EQ(values[5].asFileURL(), "/a b/ü#?%.fcpxmld/");
    EXPECT_EQ(D::bytesOf("furl", "FILE://localhost/%7ea").value().asFileURL(), "/~a");
    EXPECT_EQ(D::text("a\xff").asText(), "a\uFFFD") << "said so that it can be read";
    const std::vector<std::pair<Code, std::vector<std::string>>> malformed = {
        {"type", {"ase", "asset"}},
        {"enum", {"", "ID "}},
        {"long", {"\0\0\0"s, "\0\0\0\0a"s}},
        {"bool", {"", "\2", "\0\0"s}},
        {"utf8", {"a\xff", "\xed\xa0\x80", "\xc0\xaf", "\xe2\x82"}},
        {"furl",
         {"", "/a", "http:///a", "file://a/b", "file:a", "file:///a%", "file:///a%2", "file:///%G0", "file:///a%00",
          "file:///a%2fb", "file:///a?b", "file:///a#b", "file:///a b", "file:///\xc3\xbc"}}};
    for (const auto& [type, forms] : malformed) {
        for (const std::string& bytes : forms)
            EXPECT_EQ(answering(D::bytesOf(type, bytes).value()), "") << bytes;
    }
    for (const D& other : {D::list(values), everything, *fields.coerced("obj "), D(), *D::bytesOf("TEXT", "aset")})
        EXPECT_EQ(answering(other), "");
    EXPECT_EQ(fields.coerced("obj ")->coerced("reco"), fields);
    EXPECT_FALSE(everything.coerced("obj ") || fields.coerced("utf8") || values[2].coerced("reco"));
}

TEST(AppleEventManager, AnswersEveryEventAndOpensFilesAllOrNone)
{
    AppleEventManager manager;
    const auto error = [&](Code id, Code key, const D& value) {
        auto reply = manager.dispatch({"aevt", id, {{key, value}}}).parameters;
        return reply.contains("----") ? std::nullopt : reply["errn"].asInteger();
    };
    EXPECT_EQ(error("quit", "----", D()), -1708);
    const auto failing = [](const auto& asked, auto& reply) {
        reply.parameters = asked.parameters;
        throw std::runtime_error("Not now.");
    };
    manager.setHandler("aevt", "quit", [&manager, failing, number = values[4]](const auto&, auto& reply) {
        manager.setHandler("aevt", "quit", failing);
        reply.parameters = {{Code("errn"), number}}; // still there, though another has its place
    });
    EXPECT_EQ(error("quit", "----", D()), -1728);
    EXPECT_EQ(error("quit", "----", D()), -10000);
    std::vector<std::vector<std::string>> opened;
    installOpenDocuments(manager, [&](const auto& paths) { opened.push_back(paths); });
    const D a = D::fileURL("/a"), b = D::fileURL("/b");
    EXPECT_EQ(error("odoc", "----", a), std::nullopt);
    EXPECT_EQ(error("odoc", "----", D::list({a, b})), std::nullopt);
    EXPECT_EQ(error("odoc", "----", D::list({a, values[2]})), -1703);
    EXPECT_EQ(error("odoc", "kocl", a), -1701);
    EXPECT_EQ(opened, (std::vector<std::vector<std::string>>{{"/a"}, {"/a", "/b"}}));
}

} // namespace
} // namespace corvane
