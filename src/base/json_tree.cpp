#include "base/json_tree.h"

#include "base/error.h"
#include "base/numbers.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <functional>
#include <iterator>
#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace corvane {

namespace {

/// Reads on at a position that others see too: what an event is about ends where the library has just read.
class SharedPosition {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    explicit SharedPosition(const char*& at) : at_(&at) {}

    reference operator*() const { return **at_; }
    SharedPosition& operator++()
    {
        ++*at_;
        return *this;
    }
    bool operator==(const SharedPosition& other) const { return *at_ == *other.at_; }
    bool operator!=(const SharedPosition& other) const { return *at_ != *other.at_; }

private:
    const char** at_;
};

/// Makes the flat row of values from the events of nlohmann's parser, whose names these functions have. The values of
/// texts and numbers are taken from the document itself where that is possible.
class TreeBuilder {
public:
    explicit TreeBuilder(JsonTree& tree)
        : tree_(tree), at_(tree.bytes.data()), end_(tree.bytes.data() + tree.bytes.size())
    {
    }

    void build()
    {
        if (tree_.bytes.size() > longest / 2) // so that escaped texts, which are shorter as they are meant, fit as well
            throw PlatformError(tree_.subject + " cannot be read: it is larger than 2 GB.");
        nlohmann::json::sax_parse(SharedPosition(at_), SharedPosition(end_), this);
        if (consumed().ends_with('\0')) // the library takes it for the end of the document
            fail(consumed().size() - 1, "something follows the end of the data");
    }

    bool null() { return add(std::monostate()); }
    bool boolean(bool value) { return add(value); }
    bool number_integer(std::int64_t value) { return add(value); }
    bool number_unsigned(std::uint64_t value)
    {
        return std::in_range<std::int64_t>(value) ? add(static_cast<std::int64_t>(value))
                                                  : add(static_cast<double>(value));
    }

    /// Also a whole number beyond 64 bits. The library's value comes from strtod, which looks at the user's locale and
    /// takes numbers that are too small for zero; even its text has the user's decimal sign.
    bool number_float(double /*value*/, const std::string& text)
    {
        std::string_view read = consumed();
        if (!isDigit(read.back())) // a number ends where something else was seen, or at the end of the document
            read.remove_suffix(1);
        const auto number = readNumber(read.substr(read.size() - text.size()));
        if (!number)
            fail(read.size(), numberRefused);
        return add(*number);
    }

    /// Most texts have no escapes and stand in the document as they are meant, before their closing quote.
    bool string(const std::string& text)
    {
        const std::string_view read = consumed().substr(0, consumed().size() - 1);
        const std::string_view written = read.substr(read.size() - std::min(read.size(), text.size()));
        if (written == text)
            return add(JsonText{narrow(read.size() - text.size()), narrow(text.size())});
        const JsonText meant = {narrow(tree_.bytes.size() + tree_.unescaped.size()), narrow(text.size())};
        tree_.unescaped += text;
        return add(meant);
    }

    bool binary(const nlohmann::json::binary_t& /*value*/) { return false; } // has no form as text

    bool start_object(std::size_t /*count*/) { return open(JsonObject()); }
    bool start_array(std::size_t /*count*/) { return open(JsonList()); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }

    bool key(const std::string& text)
    {
        auto known = names_.find(text);
        if (known == names_.end()) {
            known = names_.emplace(text, narrow(tree_.names.size())).first;
            tree_.names.push_back(text);
        }
        name_ = known->second;
        return true;
    }

    template <class Exception>
    bool parse_error(std::size_t position, const std::string& /*token*/, const Exception& error)
    {
        fail(position - 1, ownWords(error.what()));
        return false; // for compilers that look for it
    }

private:
    static constexpr std::string_view numberRefused = "a number does not fit into 64 bits";

    /// No place and no length is beyond it: a document has no more values than bytes.
    static constexpr std::size_t longest = std::numeric_limits<std::uint32_t>::max();
    static std::uint32_t narrow(std::size_t place) { return static_cast<std::uint32_t>(place); }

    static bool isDigit(char c) { return c >= '0' && c <= '9'; }

    /// What the library expected and found: its name, the position and the last bytes, which may be many megabytes,
    /// are left out of its message.
    static std::string_view ownWords(std::string_view message)
    {
        const std::size_t words = message.find(" - ");
        if (words == std::string_view::npos) // the one message of another form is about a number
            return numberRefused;
        return message.substr(0, message.find("; last read: ")).substr(words + 3);
    }

    [[noreturn]] void fail(std::size_t position, std::string_view complaint) const
    {
        const std::string_view before = std::string_view(tree_.bytes).substr(0, position);
        const std::size_t column = before.size() - (before.rfind('\n') + 1); // npos + 1 is 0
        throw PlatformError(
            tree_.subject + " cannot be read: line " + std::to_string(std::ranges::count(before, '\n') + 1) +
            ", column " + std::to_string(column + 1) + ": " + std::string(complaint) + ".");
    }

    [[nodiscard]] std::string_view consumed() const { return {tree_.bytes.data(), at_}; }

    template <class Value>
    bool add(Value value)
    {
        if (!open_.empty()) {
            if (auto* list = std::get_if<JsonList>(&tree_.nodes[open_.back()].value))
                ++list->count;
        }
        tree_.nodes.push_back({value, narrow(tree_.nodes.size() + 1), name_});
        return true;
    }

    template <class Value>
    bool open(Value value)
    {
        constexpr std::size_t deepest = 256;
        if (open_.size() == deepest)
            fail(consumed().size() - 1, "lists and objects are nested too deeply");
        add(value);
        open_.push_back(tree_.nodes.size() - 1);
        return true;
    }

    bool close()
    {
        tree_.nodes[open_.back()].end = narrow(tree_.nodes.size());
        open_.pop_back();
        return true;
    }

    JsonTree& tree_;
    const char* at_;
    const char* end_;
    std::map<std::string, std::uint32_t, std::less<>> names_; ///< their places in the tree
    std::uint32_t name_ = 0;                                  ///< of the member that comes next
    std::vector<std::size_t> open_;                           ///< lists and objects that have not ended yet
};

} // namespace

std::string_view JsonTree::text(JsonText place) const
{
    if (place.start < bytes.size())
        return std::string_view(bytes).substr(place.start, place.length);
    return std::string_view(unescaped).substr(place.start - bytes.size(), place.length);
}

std::unique_ptr<const JsonTree> parseJsonTree(std::string bytes, std::string_view subject)
{
    auto tree = std::make_unique<JsonTree>();
    tree->subject = subject;
    tree->bytes = std::move(bytes);
    TreeBuilder(*tree).build();
    tree->asked.resize(tree->nodes.size());
    return tree;
}

} // namespace corvane
