#include "bench/edit_document.h"

#include "base/identifier.h"
#include "bench/document_text.h"
#include "bench/repeatable_numbers.h"
#include "import/time_values.h"

namespace corvane::bench {

namespace {

constexpr Frames fileFrames = 90'000; // an hour at 25 frames a second
constexpr Frames sourceStart = 200;

std::string time(Frames frames)
{
    return timeString(frames, 100, 2500);
}

class Generator {
public:
    Generator(std::size_t clips, std::size_t cameras) : cameras_(cameras), angleIds_(cameras + 1)
    {
        for (std::string& id : angleIds_)
            id = numbers_.base64(22);
        const IdentifierSource identifiers = randomIdentifiers();
        for (std::size_t clip = 0; clip < clips; ++clip) {
            const Frames duration = numbers_.between(100, 250);
            cuts_.push_back({identifiers(), angleIds_.at(clip * 3 % cameras_), length_, duration});
            length_ += duration;
        }
        files_ = (sourceStart + length_) / fileFrames + 1;
    }

    EditDocument run()
    {
        document_.prologue();
        document_.open("fcpxml", {{"version", "1.11"}});
        addResources();
        addProject();
        document_.close();
        return {document_.text(), std::move(cuts_)};
    }

private:
    void addResources()
    {
        document_.open("resources");
        document_.element(
            "format", {{"id", "r1"},
                       {"name", "FFVideoFormat1080p25"},
                       {"frameDuration", "100/2500s"},
                       {"width", "1920"},
                       {"height", "1080"},
                       {"colorSpace", "1-1-1 (Rec. 709)"}});
        document_.element(
            "effect", {{"id", "r2"}, {"name", "Lower Third"}, {"uid", ".../Titles.localized/Lower Third.moti"}});
        document_.open("media", {{"id", "r3"}, {"name", "Recording"}, {"uid", numbers_.base64(22)}});
        document_.open("multicam", {{"format", "r1"}, {"tcStart", "0s"}, {"tcFormat", "NDF"}});
        for (std::size_t angle = 0; angle < angleIds_.size(); ++angle)
            addAngle(angle);
        document_.close();
        document_.close();
        for (std::size_t angle = 0; angle < angleIds_.size(); ++angle) {
            for (Frames file = 0; file < files_; ++file)
                addAsset(angle, file);
        }
        document_.close();
    }

    void addAngle(std::size_t angle)
    {
        const std::string name = isRecorder(angle) ? "Recorder" : numbered("Camera ", angle + 1);
        document_.open("mc-angle", {{"name", name}, {"angleID", angleIds_.at(angle)}});
        for (Frames file = 0; file < files_; ++file) {
            document_.element(
                "asset-clip", {{"ref", fileId(angle, file)},
                               {"offset", time(file * fileFrames)},
                               {"name", fileName(angle, file)},
                               {"duration", time(fileFrames)},
                               {"tcFormat", "NDF"},
                               {"audioRole", "dialogue"}});
        }
        document_.close();
    }

    void addAsset(std::size_t angle, Frames file)
    {
        const std::string name = fileName(angle, file);
        const std::string signature = numbers_.digits(32);
        document_.open(
            "asset", {{"id", fileId(angle, file)},
                      {"name", name},
                      {"uid", signature},
                      {"start", "0s"},
                      {"duration", time(fileFrames)},
                      {"hasVideo", isRecorder(angle) ? "0" : "1"},
                      {"format", "r1"},
                      {"hasAudio", "1"},
                      {"audioSources", "1"},
                      {"audioChannels", "2"},
                      {"audioRate", "48000"}});
        document_.open(
            "media-rep",
            {{"kind", "original-media"}, {"sig", signature}, {"src", "file:///Volumes/Recordings/" + name + ".mov"}});
        document_.element("bookmark", {}, numbers_.base64(800));
        document_.close();
        document_.close();
    }

    void addProject()
    {
        document_.open("library", {{"location", "file:///Volumes/Recordings/Recording.fcpbundle/"}});
        document_.open("event", {{"name", "Recording"}, {"uid", numbers_.digits(32)}});
        document_.open("project", {{"name", "Recording"}, {"uid", numbers_.digits(32)}});
        document_.open(
            "sequence", {{"format", "r1"},
                         {"duration", time(length_)},
                         {"tcStart", "3600s"},
                         {"tcFormat", "NDF"},
                         {"audioLayout", "stereo"},
                         {"audioRate", "48k"}});
        document_.open("spine");
        document_.open(
            "mc-clip", {{"ref", "r3"},
                        {"offset", "3600s"},
                        {"name", "Recording"},
                        {"start", time(sourceStart)},
                        {"duration", time(length_)}});
        document_.open("mc-source", {{"angleID", angleIds_.back()}, {"srcEnable", "audio"}});
        document_.open("audio-role-source", {{"role", "dialogue"}});
        document_.element("adjust-volume", {{"amount", "-3dB"}});
        document_.close();
        document_.close();
        document_.element("mc-source", {{"angleID", angleIds_.at(0)}, {"srcEnable", "video"}});
        for (std::size_t item = 0; item < cuts_.size() / 10; ++item)
            addConnectedItem(item);
        for (std::size_t annotation = 0; annotation < cuts_.size(); ++annotation)
            addAnnotations();
        for (int open = 0; open < 6; ++open)
            document_.close();
    }

    void addConnectedItem(std::size_t item)
    {
        const std::string offset = time(sourceStart + numbers_.below(length_));
        if (item % 2 == 0) {
            document_.element(
                "asset-clip", {{"ref", fileId(item % cameras_, 0)},
                               {"lane", "1"},
                               {"offset", offset},
                               {"name", fileName(item % cameras_, 0)},
                               {"start", time(numbers_.below(fileFrames - 100))},
                               {"duration", "4s"},
                               {"srcEnable", "video"}});
            return;
        }
        const std::string style = numbered("ts", item);
        document_.open(
            "title", {{"ref", "r2"},
                      {"lane", "1"},
                      {"offset", offset},
                      {"name", "Lower Third"},
                      {"start", "3600s"},
                      {"duration", "5s"}});
        document_.open("text");
        document_.element("text-style", {{"ref", style}}, "First speaker");
        document_.close();
        document_.open("text-style-def", {{"id", style}});
        document_.element(
            "text-style", {{"font", "Sans"}, {"fontSize", "63"}, {"fontColor", "1 1 1 1"}, {"alignment", "center"}});
        document_.close();
        document_.close();
    }

    /// A marker and a keyword.
    void addAnnotations()
    {
        document_.element(
            "marker",
            {{"start", time(sourceStart + numbers_.below(length_))}, {"duration", "100/2500s"}, {"value", "Question"}});
        const Frames longest = 300;
        document_.element(
            "keyword", {{"start", time(sourceStart + numbers_.below(length_ - longest))},
                        {"duration", time(numbers_.between(25, longest))},
                        {"value", "Interview"}});
    }

    [[nodiscard]] bool isRecorder(std::size_t angle) const { return angle == cameras_; } // the last one
    [[nodiscard]] std::string fileId(std::size_t angle, Frames file) const
    {
        return numbered("r", 10 + static_cast<std::size_t>(file) * angleIds_.size() + angle);
    }
    [[nodiscard]] std::string fileName(std::size_t angle, Frames file) const
    {
        return numbered(
            isRecorder(angle) ? "SOUND_" : numbered("CAM", angle + 1) + "_", static_cast<std::size_t>(file) + 1);
    }

    RepeatableNumbers numbers_{3};
    std::size_t cameras_;
    std::vector<std::string> angleIds_;
    std::vector<Cut> cuts_;
    Frames length_ = 0;
    Frames files_ = 0;
    DocumentText document_;
};

} // namespace

EditDocument editDocument(std::size_t clips, std::size_t cameras)
{
    return Generator(clips, cameras).run();
}

} // namespace corvane::bench
