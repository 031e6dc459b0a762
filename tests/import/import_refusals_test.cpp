#include "import/cut_engine.h"
#include "import/project_import.h"
#include "support/documents.h"
#include "support/refusals.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace test;

const std::string missingTime = "The export contains a missing or invalid time value.";
const std::string circular = "Camera A contains a missing or circular compound clip reference.";

TEST(ImportRefusals, ComeInTheOrderOfTheDocument)
{
    // An angle's own refusal stands before what the engine says of the clip; the summary comes before both.
    const std::string badAngle = document({.angles = angle("A", "<transition/>") + angle("B", "")});
    EXPECT_REFUSED(
        loadProject(replaced(badAngle, "name=\"MC\" ", "enabled=\"0\" ")),
        "Speed changes, split audio and disabled main multicam clips are not supported yet.");
    EXPECT_REFUSED(loadProject(replaced(badAngle, "angleID=\"B\"", "")), "A camera angle is missing its identifier.");
    // What the summary refuses in a later angle stands before what the engine refuses in an earlier one.
    const auto angles = [](const std::string& a, const std::string& b) {
        return document({.angles = angle("A", a) + angle("B", b) + angle("C", "<audition/>")});
    };
    const std::string tooFar = "<clip offset=\"1e12s\" duration=\"1s\"><video ref=\"v\"/></clip>";
    const std::string transition = " contains an unsupported clip type: transition.";
    EXPECT_REFUSED(loadProject(angles("<transition/>", clip("x", "1s"))), missingTime);
    EXPECT_REFUSED(
        loadProject(replaced(angles("<transition/>", ""), "frameDuration=\"100/2500s\"", "frameDuration=\"0.04s\"")),
        "Invalid XML time: 0.04s");
    // Of two angles the first one's refusal counts, whether a clip or its place in the project is refused.
    EXPECT_REFUSED(loadProject(angles(tooFar, "<transition/>")), "Invalid angle timing.");
    EXPECT_REFUSED(loadProject(angles("<transition/>", tooFar)), "Camera A" + transition);
    EXPECT_REFUSED(loadProject(angles(tooFar + "<transition/>", "")), "Camera A" + transition);
    EXPECT_NO_THROW((void)importProject(angles(tooFar, "<transition/>"))) << "the summary alone refuses neither";
    // Offset, start and duration are read before the asset is looked up.
    EXPECT_REFUSED(loadProject(document({.angles = angle("A", "<clip start=\"x\"/>") + angle("B", "")})), missingTime);
}

TEST(ImportRefusals, StopAtFortyLevelsAndAtCircles)
{
    const auto inSpines = [](int levels, std::string inside = "") {
        for (; levels > 0; --levels)
            inside = "<spine>" + inside + "</spine>";
        return inside;
    };
    const auto with = [](const std::string& contents, const std::string& resources = "") {
        return document({.angles = angle("A", contents) + angle("B", ""), .resources = resources});
    };
    const std::string nested = "Camera A contains excessively nested clips.";
    EXPECT_NO_THROW((void)loadProject(with(inSpines(40))));
    EXPECT_REFUSED(loadProject(with(inSpines(41))), nested);
    const std::string deep = compound("c0", inSpines(20) + refClip("c1")) + compound("c1", "");
    EXPECT_NO_THROW((void)loadProject(with(refClip("c0") + inSpines(10, refClip("c0")), deep)));
    EXPECT_REFUSED(loadProject(with(refClip("c0") + inSpines(25, refClip("c0")), deep)), nested);

    const std::string use = refClip("c0");
    EXPECT_REFUSED(loadProject(with(use, compound("c0", refClip("c0")))), circular);
    EXPECT_REFUSED(loadProject(with(use, compound("c0", refClip("c1")) + compound("c1", refClip("c0")))), circular);
    EXPECT_REFUSED(loadProject(with(use, "<media id=\"c0\"/>" + compound("c0", ""))), circular);
}

} // namespace
} // namespace corvane
