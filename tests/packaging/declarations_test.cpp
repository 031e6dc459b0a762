#include "platform/files.h"
#include "platform/text.h"
#include "platform/xml_tree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace corvane {
namespace {

const std::string root = CORVANE_ROOT;

xml::Document packaged(const std::string& name)
{
    return xml::Document::parse(readFile(root + "/packaging/" + name));
}

/// What is written between the tags.
std::string textOf(xml::Element element)
{
    std::string written;
    xml::Tree(element).write(written, 0);
    std::string text;
    bool inTag = false;
    for (const char c : written) {
        inTag = inTag || c == '<';
        if (!inTag)
            text += c;
        inTag = inTag && c != '>';
    }
    return std::string(trimmed(text));
}

/// The value element of a key in a property list's dictionary.
std::optional<xml::Element> valueOf(xml::Element dictionary, std::string_view key)
{
    bool found = false;
    for (const xml::Element child : dictionary.children()) {
        if (found)
            return child;
        found = child.named("key") && textOf(child) == key;
    }
    return std::nullopt;
}

/// Every four-character code in the receiver's source.
std::set<std::string> codesInSource()
{
    const std::string source = readFile(root + "/src/intake/share_receiver.cpp");
    std::set<std::string> codes;
    constexpr std::size_t length = 4;
    for (std::size_t at = source.find('"'); at != std::string::npos; at = source.find('"', at)) {
        const std::size_t end = source.find('"', at + 1);
        if (end - at == length + 1)
            codes.insert(source.substr(at + 1, length));
        at = end + 1;
    }
    return codes;
}

std::set<std::string> codesInDefinition()
{
    std::set<std::string> codes;
    const xml::Document definition = packaged("macos/Corvane.sdef");
    for (const xml::Element element : definition.root()->descendants()) {
        if (const auto code = element.attribute("code"))
            codes.insert(std::string(*code));
    }
    return codes;
}

TEST(ScriptingDefinition, HasEveryCodeThatTheReceiverAnswers)
{
    const std::set<std::string> defined = codesInDefinition();
    const std::set<std::string> answered = codesInSource();
    // The grammar of object specifiers and events, which no application defines.
    const std::set<std::string> grammar = {"----", "want", "seld", "from", "form", "prop", "obj ", "core"};
    for (const std::string& code : answered) {
        const bool isCommand = std::ranges::any_of(
            defined, [&code](const std::string& known) { return known.size() == 8 && known.ends_with(code); });
        EXPECT_TRUE(defined.contains(code) || isCommand || grammar.contains(code) || code == "getd") << code;
    }
    for (const char* code : {"aset", "pnam", "locn", "lbry", "meta", "dopt", "aslc", "asfd", "asbn", "ashm", "ashd"}) {
        EXPECT_TRUE(defined.contains(code)) << code;
        EXPECT_TRUE(answered.contains(code)) << code;
    }
}

TEST(Bundle, DeclaresWhatFinalCutLooksFor)
{
    const xml::Document plist = packaged("macos/Info.plist.in");
    const xml::Element dictionary = *plist.root()->firstChild("dict");
    EXPECT_TRUE(valueOf(dictionary, "com.apple.proapps.MediaAssetProtocol")->named("dict"));
    EXPECT_TRUE(valueOf(dictionary, "NSAppleScriptEnabled")->named("true"));
    EXPECT_TRUE(valueOf(dictionary, "NSHighResolutionCapable")->named("true"));
    EXPECT_EQ(textOf(*valueOf(dictionary, "OSAScriptingDefinition")), "Corvane.sdef");
    std::set<std::string> extensions;
    for (const xml::Element type : valueOf(dictionary, "CFBundleDocumentTypes")->children()) {
        EXPECT_EQ(textOf(*valueOf(type, "CFBundleTypeRole")), "Viewer");
        EXPECT_EQ(textOf(*valueOf(type, "LSHandlerRank")), "Alternate") << "Final Cut stays the owner";
        extensions.insert(textOf(*valueOf(type, "CFBundleTypeExtensions")->firstChild("string")));
    }
    EXPECT_EQ(extensions, (std::set<std::string>{"fcpxml", "fcpxmld"}));

    int rights = 0;
    const xml::Document entitlements = packaged("macos/Corvane.entitlements");
    for (const xml::Element child : entitlements.root()->firstChild("dict")->children())
        rights += child.named("true") ? 1 : 0;
    EXPECT_EQ(rights, 2) << "the sandbox, and the files that the user chooses";
}

} // namespace
} // namespace corvane
