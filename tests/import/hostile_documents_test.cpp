#include "import/cut_engine.h"
#include "import/project_import.h"
#include "import/project_loading.h"
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
    const std::string unknown = "This file does not say what the entity “&e;” stands for (line ";
    EXPECT_TRUE(message(withDoctype(system, "&e;")).starts_with(unknown));
    const std::string inText = replaced(withDoctype(system, "Concert"), "<mc-source", "<note>&e;</note><mc-source");
    EXPECT_TRUE(message(inText).starts_with(unknown));
    EXPECT_NO_THROW((void)loadProject(withDoctype(system, "Concert")));
    EXPECT_NO_THROW((void)loadProject(
        replaced(document(), "<!DOCTYPE fcpxml>", "<!DOCTYPE fcpxml SYSTEM \"file://" + secret.string() + "\">")));
    EXPECT_EQ(importProject(withDoctype("<!ENTITY inner \"Choir\">", "&inner;")).name, "Choir");
    std::filesystem::remove(secret);
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
