#pragma once

#include "import/text_index.h"
#include "xml/document.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

/// What the import needs to know about one `asset`.
struct AssetFacts {
    std::optional<std::string_view> name;
    std::optional<std::string_view> duration; ///< FCPXML time
    bool hasVideo = false;
    bool hasAudio = false;
    bool located = false;                      ///< the asset or one of its media-reps has a non-empty "src"
    std::vector<std::string_view> cameraNames; ///< from the metadata, as written, with duplicates
};

/// Finds the assets, media and formats in a document's `resources` by id. If an id occurs twice, the first one is used.
/// A missing reference finds the resource without an id; an empty id is an id like any other.
class MediaResources {
public:
    using Reference = std::optional<std::string_view>;

    explicit MediaResources(xml::Element resources);

    [[nodiscard]] const AssetFacts* asset(Reference id) const;
    /// A multicam or a compound clip.
    [[nodiscard]] std::optional<xml::Element> media(Reference id) const;
    [[nodiscard]] std::optional<xml::Element> format(Reference id) const;

private:
    class Index {
    public:
        void add(Reference id, std::size_t place);
        void sort() { places_.sort(); }
        [[nodiscard]] std::optional<std::size_t> find(Reference id) const;

    private:
        TextIndex places_;
        std::optional<std::size_t> withoutId_;
        /// Most clips are of the same recording as the one before. Not for use by several threads.
        mutable std::optional<std::pair<std::string_view, std::size_t>> last_;
    };

    std::vector<AssetFacts> assets_;
    std::vector<xml::Element> media_;
    std::vector<xml::Element> formats_;
    Index assetIds_;
    Index mediaIds_;
    Index formatIds_;
};

} // namespace corvane
