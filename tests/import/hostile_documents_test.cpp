#include "import/cut_engine.h"
#include "support/documents.h"
#include "support/refusals.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace corvane {
namespace {

using namespace test;

std::string message(const std::string& bytes)
{
    try {
        (void)loadProject(bytes);
        return "";
    } catch (const std::runtime_error& failure) {
        return failure.what();
    }
}

std::string withDoctype(const std::string& subset, const std::string& name)
{
    return replaced(
        replaced(document(), "<!DOCTYPE fcpxml>", "<!DOCTYPE fcpxml [" + subset + "]>"), "<project name=\"Concert\"",
        "<project name=\"" + name + "\"");
}

TEST(HostileDocuments, LoadNothingFromOutside)
{
    const auto secret = std::filesystem::temp_directory_path() / "corvane-secret.txt";
    std::ofstream(secret) << "secret";
    const std::string system = "<!ENTITY e SYSTEM \"file://" + secret.string() + "\">";
    // In an attribute an external entity is an error; in an element it stands for nothing.
    EXPECT_NE(message(withDoctype(system, "&e;")).find("Attribute references external entity"), std::string::npos);
    const std::string inText = replaced(withDoctype(system, "Concert"), "<mc-source", "<note>&e;</note><mc-source");
    const CutEngine engine = buildEngine(inText);
    EXPECT_FALSE(engine.source->original.firstChild("note")->children().begin() != xml::ElementRange::end());
    EXPECT_NO_THROW((void)loadProject(
        replaced(document(), "<!DOCTYPE fcpxml>", "<!DOCTYPE fcpxml SYSTEM \"file://" + secret.string() + "\">")));
    EXPECT_EQ(importProject(withDoctype("<!ENTITY inner \"Choir\">", "&inner;")).name, "Choir");
    std::filesystem::remove(secret);
}

TEST(HostileDocuments, AreRefusedByTheParsersLimits)
{
    std::string bomb = "<!ENTITY e0 \"0123456789\">";
    for (int n = 1; n < 12; ++n) {
        const std::string before = "&e" + std::to_string(n - 1) + ";";
        std::string ten;
        for (int times = 0; times < 10; ++times)
            ten += before;
        bomb += "<!ENTITY e" + std::to_string(n) + " \"" + ten + "\">";
    }
    EXPECT_NE(message(withDoctype(bomb, "&e11;")), "");
    EXPECT_NE(message(replaced(withDoctype(bomb, "Concert"), "<mc-source", "<note>&e11;</note><mc-source")), "");
    EXPECT_NE(message(withDoctype("<!ENTITY a \"&b;\"><!ENTITY b \"&a;\">", "&a;")), "");

    std::string deep;
    for (int n = 0; n < 100'000; ++n)
        deep += "<spine>";
    EXPECT_NE(message(replaced(document(), "<mc-source", deep + "<mc-source")), "");
}

TEST(HostileDocuments, MayHoldTimesOfAnySize)
{
    const std::string huge = "9223372036854775807";
    const std::vector<std::string> times = {huge + "s",        "-" + huge + "s", huge + "/" + huge + "s",
                                            "1/" + huge + "s", "1e308s",         "-1e308s"};
    const std::vector<std::string> places = {"frameDuration=\"", "duration=\"", "offset=\"", "start=\"", "tcStart=\""};
    for (const std::string& place : places) {
        for (std::size_t at = document().find(place); at != std::string::npos; at = document().find(place, at + 1)) {
            for (const std::string& time : times) {
                const std::size_t value = at + place.size();
                std::string text = document();
                (void)message(text.replace(value, text.find('"', value) - value, time));
            }
        }
    }
}

TEST(HostileDocuments, MayEndAnywhere)
{
    std::ifstream file(CORVANE_SAMPLES "/sunday-service.fcpxml");
    const std::string whole((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    ASSERT_EQ(message(whole), "");
    const std::size_t end = whole.find_last_not_of('\n');
    for (std::size_t length = 0; length < end; length += 97)
        ASSERT_NE(message(whole.substr(0, length)), "") << length;
}

} // namespace
} // namespace corvane
