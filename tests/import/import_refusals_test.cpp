#include "import/cut_engine.h"
#include "import/project_import.h"
#include "platform/error.h"
#include "support/documents.h"
#include "support/refusals.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace test;

const std::string notOneProject = "Export one project from Final Cut Pro, rather than a whole event or library.";
const std::string notOneClip = "For this prototype, export a timeline containing one uncut multicam clip.";
const std::string missingTime = "The export contains a missing or invalid time value.";
const std::string noPositiveTimes = "The project must have a positive duration and frame rate.";
const std::string noMulticam = "The multicam definition is missing from this export.";
const std::string twoAngles = "The multicam needs at least two uniquely identified angles.";
const std::string notFilling = "Use one multicam clip filling the project timeline.";
const std::string notAligned = "This prototype needs timing aligned to the project frame rate.";
const std::string clipSettings = "Speed changes, split audio and disabled main multicam clips are not supported yet.";
const std::string speed = "Camera A contains speed changes or split audio, which are not supported yet.";
const std::string formats = "The multicam and project need matching frame rate, dimensions and colour format.";
const std::string circular = "Camera A contains a missing or circular compound clip reference.";

struct Change {
    std::string from, to, message;
};

TEST(ImportRefusals, TellWhatToExportInstead)
{
    for (const auto& [from, to, message] : std::vector<Change>{
             {"</fcpxml>", "</xml>",
              "The XML cannot be read: line 12, column 177: Opening and ending tag mismatch: fcpxml line 3 and xml"},
             {document(), "<xmeml/>", "This file is not a Final Cut XML export."},
             {"<project ", "<other ><project uid=\"x\"/></other><project ", "unchanged"},
             {"<library>", "<project/><library>", notOneProject},
             {"<event>", "<event><project/></event><event>", notOneProject},
             {"<sequence format", "<other/><clip format", "mismatched"},
             {"<spine>", "<spine><gap/>", notOneClip},
             {"</mc-clip>", "</mc-clip><mc-clip/>", notOneClip},
             {"id=\"mc\"", "id=\"other\"", noMulticam},
             {"<multicam format=\"r1\"", "<other/><multicam format=\"r1\"", "unchanged"},
             {"frameDuration=\"100/2500s\"", "", missingTime},
             {"id=\"r1\"", "id=\"r2\"", missingTime},
             {"duration=\"40s\" tcStart", "tcStart", missingTime},
             {"duration=\"40s\" tcStart", "duration=\"4Os\" tcStart", "The export contains an invalid time value: 4Os"},
             {"frameDuration=\"100/2500s\"", "frameDuration=\"0/25s\"", noPositiveTimes},
             {"duration=\"40s\" tcStart", "duration=\"0s\" tcStart", noPositiveTimes},
             {"angleID=\"B\"", "", "A camera angle is missing its identifier."},
             {"angleID=\"B\"", "angleID=\"A\"", twoAngles},
             {angle("B", clip("0s", "40s")), "", twoAngles},
             {"offset=\"0s\" duration=\"40s\" ", "offset=\"x\" ", missingTime},
             {"frameDuration=\"100/2500s\"", "frameDuration=\"0.04s\"", "Invalid XML time: 0.04s"},
             {"frameDuration=\"100/2500s\"", "frameDuration=\"1000001/1000000s\"", "Unsupported frame rate."},
             {"frameDuration=\"100/2500s\"", "frameDuration=\"1/1000001s\"", "Unsupported frame rate."},
             {"name=\"MC\" offset=\"0s\" start=\"0s\"", "offset=\"0s\" start=\"1/3s\"", notAligned},
             {"name=\"MC\" offset=\"0s\" start=\"0s\" duration=\"40s\"", "duration=\"0s\"", notFilling},
             {"name=\"MC\" offset=\"0s\" start=\"0s\" duration=\"40s\"", "duration=\"39s\"", notFilling},
             {"name=\"MC\" offset=\"0s\"", "offset=\"1s\"", notFilling},
             {"name=\"MC\" ", "enabled=\"0\" ", clipSettings},
             {"name=\"MC\" ", "audioStart=\"\" ", clipSettings},
             {"name=\"MC\" ", "audioDuration=\"1s\" ", clipSettings},
             {"<mc-source", "<timeMap/><mc-source", clipSettings},
             {"<mc-source", "<conform-rate scaleEnabled=\"0\"/><conform-rate/><mc-source", clipSettings},
             {"<mc-source", "<conform-rate scaleEnabled=\"0\"/><mc-source", "unchanged"},
             {"<multicam format=\"r1\"", "<multicam format=\"none\"", formats},
             {"tcStart=\"0s\"><mc-angle", "tcStart=\"1/3s\"><mc-angle", notAligned},
             // One angle: the first clip of A.
             {"<asset-clip ", "<transition/><asset-clip ", "Camera A contains an unsupported clip type: transition."},
             {"<asset-clip ", "<audition enabled=\"0\"/><asset-clip ",
              "Camera A contains an unsupported clip type: audition."},
             {" ></asset-clip>", "><timeMap/></asset-clip>",
              "Camera A, clip asset-clip, contains an unsupported setting: timeMap. Speed changes are not supported "
              "yet."},
             {" ></asset-clip>", " name=\"Take 1\"><conform-rate/><timeMap/></asset-clip>",
              "Camera A, clip Take 1, contains an unsupported setting: timeMap. Speed changes are not supported yet."},
             {" ></asset-clip>", "><conform-rate/></asset-clip>", speed},
             {"<asset-clip ", "<asset-clip audioStart=\"0s\" ", speed},
             {"ref=\"av\"", "ref=\"gone\" name=\"Take 1\"", "Camera A, clip Take 1, refers to a missing recording."},
             {"ref=\"av\"", "ref=\"lost\"",
              "No media location in export: Lost. Finish importing media in Final Cut and export XML again."},
             {"<asset-clip ", "<gap duration=\"0s\"/><asset-clip ", "Camera A contains invalid clip duration."},
             {"<asset-clip ", "<gap duration=\"0s\"><clip enabled=\"1\"><timeMap/></clip></gap><asset-clip ",
              "Camera A, clip clip, contains an unsupported setting: timeMap. Speed changes are not supported yet."},
             {"<asset-clip ", "<clip offset=\"1e12s\" duration=\"1s\"><video ref=\"v\"/></clip><asset-clip ",
              "Invalid angle timing."},
             {"<asset-clip ", "<ref-clip/><asset-clip ", circular},
             {"<asset-clip ", "<ref-clip ref=\"mc\"/><asset-clip ", circular},
         }) {
        const std::string changed = from == document() ? to : replaced(document(), from, to);
        if (message == "unchanged")
            EXPECT_NO_THROW((void)loadProject(changed)) << from << " → " << to;
        else if (message == "mismatched")
            EXPECT_THROW((void)loadProject(changed), PlatformError);
        else
            EXPECT_REFUSED(loadProject(changed), message) << from << " → " << to;
    }
    EXPECT_REFUSED(
        importProject(replaced(replaced(document(), "<sequence", "<x"), "</sequence", "</x")),
        "The project has no timeline to inspect.");
    EXPECT_REFUSED(
        importProject(replaced(replaced(document(), "<resources", "<x"), "</resources", "</x")),
        "The export has no media resources.");
}

TEST(ImportRefusals, ComeInTheOrderOfTheDocument)
{
    // An angle's own refusal stands before what the engine says of the clip; the summary comes before both.
    const std::string badAngle = document({.angles = angle("A", "<transition/>") + angle("B", "")});
    EXPECT_REFUSED(loadProject(replaced(badAngle, "name=\"MC\" ", "enabled=\"0\" ")), clipSettings);
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
