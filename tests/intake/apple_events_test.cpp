#include "intake/final_cut/share_receiver.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace std::string_literals;
using Code = FourCharacterCode;
using D = AppleEventDescriptor;
using Texts = std::vector<std::string>;

const std::vector<D> values = {D::typeCode("aset"), D::enumerated("ID  "), D::text("Ünï\0 ✂"s),
                               D::boolean(true),    D::integer(-1728),     D::fileURL("/a b/ü#?%.fcpxmld/")};

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
    EXPECT_TRUE(values[2].asText() == "Ünï\0 ✂"s && values[3].asBoolean() == true && values[4].asInteger() == -1728);
    EXPECT_EQ(values[5].bytes(), "file:///a%20b/%C3%BC%23%3F%25.fcpxmld/");
    EXPECT_EQ(values[5].asFileURL(), "/a b/ü#?%.fcpxmld/");
    EXPECT_EQ(D::bytesOf("furl", "FILE://localhost/%7ea").value().asFileURL(), "/~a");
    EXPECT_EQ(D::text("a\xff").asText(), "a\uFFFD") << "said so that it can be read";
    const std::vector<std::pair<Code, Texts>> malformed = {
        {"type", {"ase", "asset"}},
        {"long", {"\0\0\0"s, "\0\0\0\0a"s}},
        {"bool", {"", "\2", "\0\0"s}},
        {"utf8", {"a\xff", "\xed\xa0\x80"}},
        {"furl", {"", "/a", "http:///a", "file://a/b", "file:///a%2", "file:///a%00", "file:///a%2fb", "file:///a?b"}}};
    for (const auto& [type, forms] : malformed) {
        for (const std::string& bytes : forms)
            EXPECT_EQ(answering(D::bytesOf(type, bytes).value()), "") << bytes;
    }
    EXPECT_EQ(answering(D::list(values)) + answering(D::emptyRecord()) + answering(D()), "");
}

TEST(AppleEventManager, AnswersEveryEventAndOpensFilesAllOrNone)
{
    AppleEventManager manager;
    const auto error = [&](Code id, Code key, const D& value) {
        auto reply = manager.dispatch({"aevt", id, {{key, value}}}).parameters;
        return reply.contains("----") ? std::nullopt : reply["errn"].asInteger();
    };
    EXPECT_EQ(error("quit", "----", D()), -1708);
    manager.setHandler("aevt", "quit", [](const auto& asked, auto& reply) {
        reply.parameters = asked.parameters;
        throw std::runtime_error("Not now.");
    });
    EXPECT_EQ(error("quit", "----", D()), -10000);
    std::vector<Texts> opened;
    installOpenDocuments(manager, [&](const auto& paths) { opened.push_back(paths); });
    const D a = D::fileURL("/a"), b = D::fileURL("/b");
    EXPECT_EQ(error("odoc", "----", a), std::nullopt);
    EXPECT_EQ(error("odoc", "----", D::list({a, b})), std::nullopt);
    EXPECT_EQ(error("odoc", "----", D::list({a, values[2]})), -1703);
    EXPECT_EQ(error("odoc", "kocl", a), -1701);
    EXPECT_EQ(opened, (std::vector<Texts>{{"/a"}, {"/a", "/b"}}));
}

D property(Code code, const D& asset)
{
    const D prop = D::typeCode("prop");
    return D::record({{"want", prop}, {"form", D::enumerated("prop")}, {"seld", D::typeCode(code)}, {"from", asset}});
}

/// The direct object of the reply, or the number and text of its error.
D answer(FinalCutShareReceiver& receiver, Code id, const AppleEventParameters& parameters)
{
    AppleEventManager manager;
    receiver.install(manager);
    auto reply = manager.dispatch({"core", id, parameters}).parameters;
    if (!reply.contains("errn"))
        return reply.at("----");
    EXPECT_EQ(reply.size(), 2U) << "nothing beside an error";
    return D::text(std::to_string(*reply["errn"].asInteger()) + " " + *reply["errs"].asText());
}

D make(FinalCutShareReceiver& receiver, const D& properties = {})
{
    return answer(receiver, "crel", {{Code("kocl"), D::typeCode("aset")}, {Code("prdt"), properties}});
}

D get(FinalCutShareReceiver& receiver, const D& asked)
{
    return answer(receiver, "getd", {{Code("----"), asked}});
}

const D notFound = D::text("-1728 The requested Final Cut transfer was not found.");

TEST(ShareReceiver, AnswersEveryQuestionOfAShare)
{
    const test::ScratchFolder scratch;
    const std::string incoming = scratch.file("Ünsorted & new/Incoming/");
    FinalCutShareReceiver receiver(incoming);
    const D pairs = D::list({D::text("key"), *D::bytesOf("doub", "12345678")}), no = D::boolean(false);
    const D metadata = *D::record({{"usrf", pairs}}).coerced("usrf"), concert = D::text("Concert ♪");
    const D asset = make(receiver, D::record({{"pnam", concert}, {"meta", metadata}}));
    const auto asked = [&](Code code) { return get(receiver, *property(code, asset).coerced("obj ")); };
    const std::string id = receiver.assets().begin()->first;
    EXPECT_EQ(Identifier::parse(id).value().text(), id);
    const D kind = D::typeCode("aset"), form = D::enumerated("ID  "), uuid = D::text(id);
    EXPECT_EQ(asset, D::record({{"want", kind}, {"form", form}, {"seld", uuid}, {"from", D()}}).coerced("obj "));
    const D folder = D::fileURL(incoming + id + "/"), base = D::text("Corvane Import"), yes = D::boolean(true);
    const D location = D::record({{"asfd", folder}, {"asbn", base}, {"ashm", no}, {"ashd", yes}});
    EXPECT_EQ(asked("locn"), location.coerced("aslc"));
    EXPECT_EQ(asked("lbry"), D::record({{"lbha", no}, {"lbhd", no}}).coerced("lblc"));
    EXPECT_EQ(asked("meta"), metadata);
    EXPECT_EQ(asked("dopt"), D::emptyRecord());
    EXPECT_EQ(asked("pnam"), concert);
    EXPECT_EQ(asked("ID  "), uuid);
    EXPECT_TRUE(std::filesystem::is_directory(*asked("locn").field("asfd")->asFileURL()));
}

TEST(ShareReceiver, RefusesEveryRequestThatIsNotExactlyRight)
{
    const test::ScratchFolder scratch;
    FinalCutShareReceiver receiver(scratch.path()), nextRun(scratch.path()), nowhere("/dev/null/Incoming");
    EXPECT_TRUE(make(nowhere).asText().value_or("").starts_with("-10000 Cannot make ") && nowhere.assets().empty());
    for (const D& kind : {D::typeCode("docu"), D::enumerated("aset"), D()})
        EXPECT_EQ(
            answer(receiver, "crel", {{Code("kocl"), kind}}), D::text("-1728 Corvane accepts Final Cut assets only."));
    EXPECT_TRUE(receiver.assets().empty() && scratch.names().empty());
    const D asset = *make(receiver).coerced("reco"), right = property("pnam", asset);
    EXPECT_EQ(get(receiver, right), D::text("Final Cut project"));
    EXPECT_EQ(get(receiver, property("meta", asset)), D::emptyRecord());
    EXPECT_EQ(get(receiver, property("size", asset)), D::text("-1728 Unsupported Final Cut asset property."));
    EXPECT_EQ(get(nextRun, right), notFound);
    EXPECT_EQ(answer(receiver, "getd", {}), notFound);
    for (const D& other : {D(), D::text("pnam"), D::list({right})})
        EXPECT_TRUE(get(receiver, other) == notFound && get(receiver, property("pnam", other)) == notFound);
}

} // namespace
} // namespace corvane
