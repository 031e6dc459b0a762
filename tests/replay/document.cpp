#include "base/base64.h"
#include "engine/coverage_report.h"
#include "engine/generation_inputs.h"
#include "export/rough_edit_writer.h"
#include "export/settings_record.h"
#include "import/project_import.h"
#include "import/project_loading.h"
#include "replay/kinds.h"
#include "session/record_reading.h"
#include "session/saved_session.h"
#include "session/session_encoding.h"
#include "timecode/timecode.h"

namespace corvane::replay {

namespace {

/// Everything computed from one document whose engine could be built.
class DocumentAnswer {
public:
    DocumentAnswer(const Json& request, const LoadedProject& project)
        : request_(request),
          project_(project.imported),
          engine_(project.engine),
          settings_(settings(request.at("settings")))
    {
    }

    void fill(Json& answer)
    {
        for (const Frames frame : request_.value("labels", std::vector<Frames>()))
            answer["labels"].push_back(timecodeLabel(engine_, frame));
        for (const auto& text : request_.value("parse", std::vector<std::string>()))
            answer["parse"].push_back(attempt([&]() -> Json { return parseTimecode(engine_, text); }));
        answer["generate"] = generated(
            [this](const GenerationSources& sources) {
                return generateFromSettings(project_, engine_, settings_, sources);
            },
            &cuts_);
        if (request_.contains("raw"))
            answer["generateRaw"] = generated(
                [this](const GenerationSources& sources) {
                    return generateCuts(engine_, generationInputs(request_.at("raw")), sources);
                },
                nullptr);
        fillCoverage(answer);
        fillCutLists(answer);
        fillStored(answer);
    }

private:
    template <class Generation>
    Json generated(const Generation& generation, std::optional<std::vector<Cut>>* kept)
    {
        std::size_t used = 0;
        GenerationSources sources;
        sources.randomNumbers = [&] { return number(request_.at("draws").at(used++ % request_.at("draws").size())); };
        sources.identifiers = countedIdentifiers();
        Json answer = attempt([&]() -> Json {
            const std::vector<Cut> cuts = generation(sources);
            if (kept != nullptr)
                *kept = cuts;
            Json list = Json::array();
            for (const Cut& cut : cuts)
                list.push_back({{"angle", cut.angle}, {"start", cut.start}, {"duration", cut.duration}});
            return {{"cuts", list}};
        });
        answer["drawsUsed"] = used;
        return answer;
    }

    void fillCoverage(Json& answer) const
    {
        const CoverageReport report = selectedCoverage(project_, engine_, settings_);
        const auto gaps =
            report.message ? std::vector<FrameRange>() : uncoveredStretches(report.covered, engine_.length);
        answer["coverage"] = {{"covered", report.covered}, {"message", orNull(report.message)}, {"gaps", gaps}};
        answer["warning"] = {{"warning", orNull(setupWarning(project_, engine_, settings_))}, {"seconds", nullptr}};
    }

    void fillCutLists(Json& answer) const
    {
        answer["usage"] = Json::array();
        answer["export"] = Json::array();
        std::optional<std::vector<Cut>> first = cuts_;
        for (const Json& list : request_.value("cutLists", Json::array())) {
            const auto listed = cuts(list.at("cuts"));
            if (!first)
                first = listed;
            const Json& audio = list.at("audio");
            fillCutList(answer, listed, audio.is_null() ? std::nullopt : std::optional(audio.get<std::string>()));
        }
        if (cuts_)
            fillCutList(answer, *cuts_, settings_.audio);
        if (request_.contains("revision")) {
            const Json& revision = request_.at("revision");
            const EditRevision edit = {
                identifier(revision.at("id")),
                {number(revision.at("created"))},
                settings_,
                first.value_or(std::vector<Cut>())};
            answer["record"] = settingsRecordText(project_, engine_, edit);
        }
    }

    void fillStored(Json& answer) const
    {
        std::optional<std::string> session;
        if (request_.contains("sessionBytes") && !request_.at("sessionBytes").is_null()) {
            session = bytes(request_.at("sessionBytes"));
        } else if (request_.contains("session") && !request_.at("session").is_null()) {
            Json file = request_.at("session");
            file["sourceXML"] = request_.at("xml");
            session = file.dump();
        }
        if (session)
            answer["session-validate"] = attempt([&]() -> Json {
                validateSession(decodeSession(*session), engine_);
                return {{"ok", true}};
            });
        if (request_.contains("preset"))
            answer["preset-apply"] = attempt([&]() -> Json {
                const JsonDocument preset = parseJson(request_.at("preset").dump());
                const AppliedPreset applied = appliedPreset(readPreset(preset.root()), project_, engine_, settings_);
                return {{"settings", Json::parse(encodedSettings(applied.settings))}, {"presetNotice", applied.notice}};
            });
    }

    void fillCutList(Json& answer, const std::vector<Cut>& list, const std::optional<std::string>& audio) const
    {
        Json usage = Json::object();
        for (const auto& [camera, used] : cameraUsage(list))
            usage[camera] = {{"frames", used.frames}, {"shots", used.shots}};
        answer["usage"].push_back(usage);
        answer["export"].push_back(attempt([&]() -> Json {
            return {{"xml", base64Encoded(roughEditXML(engine_, list, audio, countedIdentifiers()))}};
        }));
    }

    const Json& request_;
    const ImportedProject& project_;
    const CutEngine& engine_;
    EditSettings settings_;
    std::optional<std::vector<Cut>> cuts_; ///< the generated list
};

} // namespace

Json answerDocument(const Json& request)
{
    Json answer;
    std::optional<xml::Document> document;
    answer["import"] = attempt([&] {
        document = xml::Document::parse(bytes(request.at("xml")));
        return json(importProject(*document));
    });
    std::optional<LoadedProject> project;
    answer["engine"] = attempt([&] {
        project = document ? loadProject(*document) : loadProject(bytes(request.at("xml")));
        return json(project->engine);
    });
    if (project)
        DocumentAnswer(request, *project).fill(answer);
    return answer;
}

} // namespace corvane::replay
