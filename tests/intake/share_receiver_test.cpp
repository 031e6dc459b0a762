#include "base/error.h"
#include "intake/final_cut/share_receiver.h"
#include "intake/project_file.h"
#include "support/failing_files.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ranges>

namespace corvane {
namespace {

using Code = FourCharacterCode;
using D = AppleEventDescriptor;
using Texts = std::vector<std::string>;

struct NoHome : ApplicationSupport {
    std::string folder() override { throw PlatformError("There is no home."); }
};

struct AlertLog : Alerts {
    Texts shown;
    void showAlert(const std::string& message, const std::string& informativeText) override
    {
        shown.push_back(message + ": " + informativeText);
    }
};

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

const std::string alert = "Open one Final Cut XML project at a time: "
                          "Select one project in Final Cut and share it to Corvane.";
const D notFound = D::text("-1728 The requested Final Cut transfer was not found.");

TEST(ShareReceiver, LeadsAShareFromTheFirstQuestionToTheInbox)
{
    const test::ScratchFolder scratch;
    const std::string incoming = scratch.file("Ünsorted & new/Incoming/");
    FinalCutShareReceiver receiver(incoming);
    AppleEventManager manager;
    XMLInbox inbox;
    AlertLog alerts;
    int activated = 0;
    const auto open = [&](const Texts& files) {
        openURLs(files, inbox, alerts, [&] { activated += inbox.url() ? 1 : 100; });
    };
    installOpenDocuments(manager, open);
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
    const std::string file = *asked("locn").field("asfd")->asFileURL() + "Corvane Import.fcpxml";
    writeNewFile(file, "<fcpxml/>");
    EXPECT_EQ(manager.dispatch({"aevt", "odoc", {{Code("----"), D::list({D::fileURL(file)})}}}), AppleEventReply());
    EXPECT_EQ(activated, 1) << "after the file was put into the inbox";
    EXPECT_EQ(readProjectFile(inbox.url().value()).bytes, "<fcpxml/>");
    open({"/a.FCPXMLD"});
    for (const Texts& several : {Texts{}, {"/a.xml"}, {"/b.fcpxml", "/c.fcpxml"}})
        open(several);
    EXPECT_TRUE(activated == 2 && inbox.url() == "/a.FCPXMLD") << "nothing else was loaded";
    EXPECT_EQ(alerts.shown, Texts(3, alert));
}

TEST(ShareReceiver, KeepsAssetsApartAndForgetsThemAtTheEnd)
{
    const test::ScratchFolder scratch;
    FinalCutShareReceiver receiver(scratch.path()), nextRun(scratch.path());
    const D odd = D::integer(1), bare = answer(receiver, "crel", {{Code("kocl"), D::typeCode("aset")}});
    for (const D& asset : {bare, make(receiver, odd), make(receiver, D::record({{"pnam", odd}}))}) {
        EXPECT_EQ(get(receiver, property("pnam", asset)), D::text("Final Cut project"));
        EXPECT_EQ(get(receiver, property("meta", asset)), D::emptyRecord());
        EXPECT_EQ(get(nextRun, property("locn", asset)), notFound);
    }
    EXPECT_EQ(get(receiver, property("meta", make(receiver, D::record({{"meta", odd}})))), odd) << "as received";
    const auto ids = std::views::keys(receiver.assets());
    EXPECT_EQ(scratch.names(), Texts(ids.begin(), ids.end()));
    EXPECT_EQ(ids.size(), 4U);
}

TEST(ShareReceiver, RefusesEveryRequestThatIsNotExactlyRight)
{
    const test::ScratchFolder scratch;
    FinalCutShareReceiver receiver(scratch.path());
    const D assetsOnly = D::text("-1728 Corvane accepts Final Cut assets only.");
    for (const D& kind : {D::typeCode("docu"), D::enumerated("aset"), D()})
        EXPECT_EQ(answer(receiver, "crel", {{Code("kocl"), kind}}), assetsOnly);
    EXPECT_EQ(answer(receiver, "crel", {}), assetsOnly);
    EXPECT_TRUE(receiver.assets().empty() && scratch.names().empty());
    const D asset = *make(receiver).coerced("reco"), right = property("pnam", asset);
    const D unsupported = D::text("-1728 Unsupported Final Cut asset property.");
    EXPECT_EQ(get(receiver, property("size", asset)), unsupported);
    EXPECT_EQ(answer(receiver, "getd", {}), notFound);
    for (const D& other : {D(), D::text("pnam"), D::list({right})})
        EXPECT_TRUE(get(receiver, other) == notFound && get(receiver, property("pnam", other)) == notFound);
    const D prop = D::typeCode("prop"), form = D::enumerated("prop"), code = D::typeCode("pnam");
    const D stranger = *D::record({{"want", D::typeCode("aset")},
                                   {"form", D::enumerated("ID  ")},
                                   {"seld", D::text("00000000-0000-4000-8000-000000000000")},
                                   {"from", D()}})
                            .coerced("obj ");
    for (const D& wrong :
         {D::record({{"want", D::typeCode("docu")}, {"form", form}, {"seld", code}, {"from", asset}}),
          D::record({{"form", form}, {"seld", code}, {"from", asset}}),
          D::record({{"want", prop}, {"form", form}, {"seld", D::text("pnam")}, {"from", asset}}),
          D::record({{"want", prop}, {"form", form}, {"seld", code}}), property("pnam", stranger)})
        EXPECT_EQ(get(receiver, wrong), notFound);
}

TEST(ShareReceiver, MakesAFolderOrTellsWhyNot)
{
    const test::ScratchFolder scratch;
    ::setenv("HOME", scratch.path().c_str(), 1);
    for (const auto& [data, folder] : {std::pair(scratch.file("data/"), "data"), {"relative", ".local/share"}}) {
        ::setenv("XDG_DATA_HOME", data.c_str(), 1);
        EXPECT_TRUE(std::filesystem::is_directory(ApplicationSupport::system().folder()));
        FinalCutShareReceiver receiver;
        make(receiver);
        const auto& [id, asset] = *receiver.assets().begin();
        EXPECT_EQ(asset.folder, scratch.file(std::string(folder) + "/Corvane/Incoming/" + id));
        EXPECT_TRUE(std::filesystem::is_directory(asset.folder));
    }
    NoHome noHome;
    test::FailingFiles disk(0);
    FinalCutShareReceiver homeless(std::nullopt, randomIdentifiers(), noHome);
    EXPECT_EQ(make(homeless), D::text("-10000 There is no home."));
    writeNewFile(scratch.file("file"), "");
    FinalCutShareReceiver blocked(scratch.file("file/Incoming"));
    EXPECT_EQ(make(blocked), D::text("-10000 Cannot make file: File exists."));
    FinalCutShareReceiver full(scratch.file("a/b"), [] { return Identifier(); }, noHome, disk);
    for (const std::string folder : {"a", "b", "00000000-0000-0000-0000-000000000000"}) {
        EXPECT_EQ(make(full), D::text("-10000 Cannot make " + folder + ": No space left on device."));
        EXPECT_TRUE(full.assets().empty());
        disk.failing = disk.calls + 1; // the next attempt comes one folder further
    }
}

} // namespace
} // namespace corvane
