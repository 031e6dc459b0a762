#include "analysis/edit_picture.h"

#include "analysis/camera_colors.h"
#include "analysis/names.h"
#include "analysis/rule_trial.h"
#include "analysis/shot_reasons.h"
#include "base/numbers.h"
#include "base/text.h"
#include "engine/coverage_report.h"
#include "engine/generation_inputs.h"
#include "export/settings_record.h"
#include "timecode/timecode.h"

#include <algorithm>
#include <cstdio>

namespace corvane {

namespace {

/// Readable on A4 and on a phone, where each row of the table becomes a block.
constexpr std::string_view style = R"css(
:root{color-scheme:light}
body{font:15px/1.45 system-ui,-apple-system,"Segoe UI",Roboto,"Noto Sans",sans-serif;color:#1d1b19;background:#fff;
margin:0 auto;max-width:1100px;padding:16px;-webkit-print-color-adjust:exact;print-color-adjust:exact;
overflow-wrap:anywhere}
h1{font-size:1.5em;margin:0 0 .1em}h2{font-size:1.1em;margin:1.6em 0 .4em;border-bottom:1px solid #d8d4ce}
p{margin:.2em 0}.quiet{color:#625d57}
.lane{display:grid;grid-template-columns:15em 1fr;gap:.3em .8em;align-items:center;margin:.15em 0}
.lane svg,.bar{display:block;width:100%;height:22px;background:#f0eeeb}
.lane svg{outline:1px solid #d8d4ce}
.axis{display:flex;justify-content:space-between;font-variant-numeric:tabular-nums;font-size:.8em;color:#625d57}
.chip{display:inline-block;min-width:1.35em;padding:0 .2em;text-align:center;font-weight:700;border-radius:3px;
color:#161616;margin-right:.35em}
table{border-collapse:collapse;width:100%;font-variant-numeric:tabular-nums}
th,td{text-align:left;vertical-align:top;padding:.25em .6em .25em 0;border-bottom:1px solid #e7e4df}
th{color:#625d57;font-weight:600}.number{text-align:right}.number,.time{white-space:nowrap}
td.bar-cell{width:30%}thead{display:table-header-group}tr{break-inside:avoid}
ul{margin:.3em 0;padding-left:1.2em}
@media(max-width:600px){body{padding:10px}.lane{grid-template-columns:1fr;gap:.1em}.middle{display:none}
.shots thead{display:none}.shots tr{display:grid;grid-template-columns:auto 1fr auto;gap:0 .7em;padding:.35em 0;
border-bottom:1px solid #e7e4df}.shots td{border:0;padding:0}.shots td.why{grid-column:1/-1;color:#4a4640}
.bar-cell,.aside{display:none}th,td{padding-right:.5em}}
@page{size:A4;margin:14mm}
@media print{body{padding:0;font-size:10pt;max-width:none}}
)css";

std::string escaped(std::string_view text)
{
    std::string out;
    for (const char each : shownText(text)) {
        switch (each) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        case '\'':
            out += "&#39;";
            break;
        default:
            out += each;
        }
    }
    return out;
}

/// From the seventeenth camera on, the colours repeat, darker, as in the window.
std::string colorAt(std::size_t position)
{
    const std::uint32_t color = cameraColors.at(position % cameraColors.size());
    const bool isDark = position >= cameraColors.size();
    const auto part = [&](unsigned shift) {
        const std::uint32_t value = (color >> shift) & 0xFFU;
        return isDark ? value * 100 / 140 : value;
    };
    char text[8] = {};
    (void)std::snprintf(text, sizeof text, "#%02x%02x%02x", part(16), part(8), part(0));
    return text;
}

class Page {
public:
    Page(
        const ImportedProject& project, const CutEngine& engine, const EditRevision& revision,
        std::string_view decimalSign)
        : project_(project),
          engine_(engine),
          revision_(revision),
          decimalSign_(decimalSign),
          marks_(editMarks(engine, revision.settings)),
          cameras_(videoAngles(project, engine))
    {
    }

    std::string text()
    {
        const std::string title = escaped(project_.name) + " · rough edit";
        out_ = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
               "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
               "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src "
               "'unsafe-inline'\">\n<title>" +
               title + "</title>\n<style>" + std::string(style) + "</style>\n</head>\n<body>\n<h1>" + title +
               "</h1>\n<p class=\"quiet\">" + timecodeLabel(engine_, 0) + " to " +
               timecodeLabel(engine_, engine_.length) + " · " + shortNumber(project_.framesPerSecond, decimalSign_) +
               " frames a second · " + std::to_string(revision_.cuts.size()) +
               (revision_.cuts.size() == 1 ? " cut" : " cuts") + " · made " + revision_.created.isoText() + "</p>\n";
        addLanes();
        addShares();
        addShots();
        addSettings();
        return std::move(out_) + "</body>\n</html>\n";
    }

private:
    [[nodiscard]] std::string label(std::string_view camera) const
    {
        const auto found = std::ranges::find(cameras_, camera, &ImportedAngle::id);
        if (found == cameras_.end())
            return escaped(angleLabel(project_, camera));
        const auto position = static_cast<std::size_t>(found - cameras_.begin());
        return "<span class=\"chip\" style=\"background:" + colorAt(position) + "\">" + cameraLetter(position) +
               "</span>" + escaped(angleLabel(project_, camera));
    }

    /// Draws ranges shorter than a thousandth of the project as long as that, so that they are visible.
    void addRange(const FrameRange& range, const std::string& attributes, int top = 0)
    {
        const Frames least = std::max<Frames>(1, engine_.length / 1000);
        out_ += "<rect x=\"" + std::to_string(range.start) + "\" y=\"" + std::to_string(top) + "\" width=\"" +
                std::to_string(std::max(least, range.end - range.start)) + "\" height=\"" + std::to_string(20 - top) +
                "\" " + attributes + "/>";
    }

    void beginLane(const std::string& name, const std::string& words)
    {
        out_ += "<div class=\"lane\"><div>" + name + "</div><svg role=\"img\" aria-label=\"" + words +
                "\" viewBox=\"0 0 " + std::to_string(engine_.length) + " 20\" preserveAspectRatio=\"none\">";
    }

    void addAsked(std::string_view camera)
    {
        const std::string line = "fill=\"none\" stroke=\"#161616\" stroke-width=\"2\" vector-effect="
                                 "\"non-scaling-stroke\"";
        for (const FixedCameraSection& section : marks_.sections) {
            if (section.angle != camera)
                continue;
            if (section.end - section.start < engine_.length / 100) // a frame would cover its colour
                addRange({section.start, section.end}, "fill=\"#161616\"", 17);
            else
                addRange({section.start, section.end}, line);
        }
        const EditSettings& settings = revision_.settings;
        if (marks_.opening && settings.openingCamera == camera)
            addRange(*marks_.opening, line + " stroke-dasharray=\"4 3\"");
        if (marks_.closing && settings.closingCamera == camera)
            addRange(*marks_.closing, line + " stroke-dasharray=\"4 3\"");
    }

    void addLanes()
    {
        out_ += "<h2>The edit</h2>\n<div class=\"lane\"><div></div><div class=\"axis\">";
        constexpr Frames quarters = 4;
        for (Frames quarter = 0; quarter <= quarters; ++quarter)
            out_ += std::string(quarter % 2 == 0 ? "<span>" : "<span class=\"middle\">") +
                    timecodeLabel(engine_, engine_.length * quarter / quarters) + "</span>";
        out_ += "</div></div>\n";
        for (std::size_t i = 0; i < cameras_.size(); ++i) {
            const std::string& id = cameras_[i].id;
            const auto shots = std::ranges::count(revision_.cuts, id, &Cut::angle);
            beginLane(label(id), escaped(angleLabel(project_, id)) + ": " + std::to_string(shots) + " cuts");
            for (const FrameRange& range : engine_.videoRanges(id))
                addRange(range, "fill=\"" + colorAt(i) + "\" fill-opacity=\".22\"");
            for (const Cut& cut : revision_.cuts) {
                if (cut.angle == id)
                    addRange({cut.start, cut.start + cut.duration}, "fill=\"" + colorAt(i) + "\"");
            }
            addAsked(id);
            out_ += "</svg></div>\n";
        }
        beginLane("Audio: " + escaped(angleLabel(project_, revision_.settings.audio)), "Sound");
        for (const FrameRange& range : engine_.audioRanges(revision_.settings.audio))
            addRange(range, "fill=\"#bfb5a6\"");
        out_ += "</svg></div>\n<p class=\"quiet\">Full colour: on screen. Pale: the camera has footage. Framed, or "
                "underlined where it is short: a fixed section. Dashed: the opening or closing shot.</p>\n";
    }

    void addShares()
    {
        const auto shares = cameraShares(project_, engine_, revision_.cuts);
        const auto targets = targetShares(project_, engine_, revision_.settings);
        out_ += "<h2>Screen time</h2>\n<table><thead><tr><th>Camera</th><th class=\"number\">Share</th><th "
                "class=\"number\">Target</th><th class=\"bar-cell\"></th><th class=\"number aside\">Seconds</th><th "
                "class=\"number\">Shots</th></tr></thead><tbody>\n";
        for (std::size_t i = 0; i < cameras_.size(); ++i) {
            const CameraShare& camera = shares[i]; // both are in project order
            const auto target = targets.find(camera.angle.id);
            const bool hasTarget = target != targets.end();
            out_ += "<tr><td>" + label(camera.angle.id) + "</td><td class=\"number\">" + fixed(camera.percent, 1) +
                    "%</td><td class=\"number\">" + (hasTarget ? fixed(target->second, 1) + "%" : "–") +
                    "</td><td class=\"bar-cell\"><svg class=\"bar\" role=\"img\" aria-label=\"Share and target\" "
                    "viewBox=\"0 0 100 20\" preserveAspectRatio=\"none\"><rect width=\"" +
                    fixed(camera.percent, 1) + "\" height=\"20\" fill=\"" + colorAt(i) + "\"/>" +
                    (hasTarget ? "<rect x=\"" + fixed(target->second, 1) + "\" width=\".8\" height=\"20\"/>" : "") +
                    "</svg></td><td class=\"number aside\">" + fixed(engine_.seconds(camera.frames), 2) +
                    "</td><td class=\"number\">" + std::to_string(camera.shots) + "</td></tr>\n";
        }
        out_ += "</tbody></table>\n";
    }

    void addShots()
    {
        const ShotReasons reasons(project_, engine_, revision_.settings, revision_.cuts);
        out_ += "<h2>Shots</h2>\n<table class=\"shots\"><thead><tr><th>Start</th><th>Camera</th><th "
                "class=\"number\">Seconds</th><th>Why</th></tr></thead><tbody>\n";
        for (std::size_t i = 0; i < revision_.cuts.size(); ++i) {
            const Cut& cut = revision_.cuts[i];
            out_ += "<tr><td class=\"time\">" + timecodeLabel(engine_, cut.start) + "</td><td>" + label(cut.angle) +
                    "</td><td class=\"number\">" + shortNumber(engine_.seconds(cut.duration), decimalSign_) +
                    "</td><td class=\"why\">" + escaped(reasons.begins(i)) + " " + escaped(reasons.ends(i)) +
                    "</td></tr>\n";
        }
        out_ += "</tbody></table>\n";
    }

    void addSettings()
    {
        const std::string record = settingsHeadText(project_, engine_, revision_);
        out_ += "<h2>Settings</h2>\n<ul>\n";
        std::size_t line = record.find('\n') + 1; // this page does not show the title
        for (std::size_t end = record.find('\n', line); end != std::string::npos; end = record.find('\n', line)) {
            if (end > line)
                out_ += "<li>" + escaped(std::string_view(record).substr(line, end - line)) + "</li>\n";
            line = end + 1;
        }
        out_ += "</ul>\n";
    }

    const ImportedProject& project_;
    const CutEngine& engine_;
    const EditRevision& revision_;
    std::string_view decimalSign_;
    EditMarks marks_;
    std::vector<ImportedAngle> cameras_;
    std::string out_;
};

} // namespace

std::string editPicture(
    const ImportedProject& project, const CutEngine& engine, const EditRevision& revision, std::string_view decimalSign)
{
    return Page(project, engine, revision, decimalSign).text();
}

} // namespace corvane
