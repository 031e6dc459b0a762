#include "base/json_tree.h"

#include "base/error.h"
#include "base/numbers.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace corvane {

namespace {

/// Builds the flat array of values from the events of nlohmann's parser, after which these functions are named.
class TreeBuilder {
public:
    TreeBuilder(JsonTree& tree, std::string_view bytes) : tree_(tree), bytes_(bytes) {}

    void build()
    {
        constexpr std::size_t largest = std::numeric_limits<std::uint32_t>::max() / 2;
        if (bytes_.size() > largest) // a document has no more values and no more text than bytes
            fail("it is larger than 2 GB");
        tree_.texts.reserve(bytes_.size()); // pages that are never written take no memory
        nlohmann::json::sax_parse(bytes_.begin(), bytes_.end(), this);
        if (const std::size_t zero = bytes_.find('\0'); zero != std::string_view::npos)
            fail("something follows the end of the data", zero); // the library takes a zero byte for the end
    }

    bool null() { return add(std::monostate()); }
    bool boolean(bool value) { return add(value); }
    bool number_integer(std::int64_t value) { return add(value); }
    bool number_unsigned(std::uint64_t value)
    {
        return std::in_range<std::int64_t>(value) ? add(static_cast<std::int64_t>(value))
                                                  : add(static_cast<double>(value));
    }

    /// Also called for whole numbers beyond 64 bits. The library's value comes from strtod, which uses the user's
    /// locale and turns numbers that are too small into zero; even the text has the user's decimal sign.
    bool number_float(double /*value*/, std::string text)
    {
        if (const std::size_t sign = text.find_first_not_of("+-0123456789Ee"); sign != std::string::npos)
            text[sign] = '.';
        const auto number = readNumber(text);
        if (!number)
            fail(numberRefused);
        return add(*number);
    }

    bool string(std::string_view text)
    {
        tree_.texts += text;
        return add(JsonText{narrow(tree_.texts.size() - text.size()), narrow(text.size())});
    }

    bool binary(const nlohmann::json::binary_t& /*value*/) { return false; } // JSON text has no binary values

    bool start_object(std::size_t /*count*/) { return open(JsonObject()); }
    bool start_array(std::size_t /*count*/) { return open(JsonList()); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }

    bool key(std::string& text)
    {
        const auto [known, isNew] = names_.try_emplace(text, narrow(tree_.names.size()));
        if (isNew)
            tree_.names.push_back(std::move(text));
        name_ = known->second;
        return true;
    }

    template <class Exception>
    bool parse_error(std::size_t position, const std::string& /*token*/, const Exception& error)
    {
        fail(ownWords(error.what()), position - 1);
        return false; // for compilers that expect a return
    }

private:
    static constexpr std::string_view numberRefused = "a number does not fit into 64 bits";

    static std::uint32_t narrow(std::size_t place) { return static_cast<std::uint32_t>(place); }

    /// What the library expected and found: its message without its name, the position and the last bytes, which may be
    /// many megabytes long.
    static std::string_view ownWords(std::string_view message)
    {
        const std::size_t words = message.find(" - ");
        if (words == std::string_view::npos) // the only message with another form is about a number
            return numberRefused;
        return message.substr(0, message.find("; last read: ")).substr(words + 3);
    }

    [[noreturn]] void fail(std::string_view complaint, std::optional<std::size_t> position = std::nullopt) const
    {
        std::string place;
        if (position) {
            const std::string_view before = bytes_.substr(0, *position);
            const std::size_t column = before.size() - (before.rfind('\n') + 1); // npos + 1 is 0
            place = "line " + std::to_string(std::ranges::count(before, '\n') + 1) + ", column " +
                    std::to_string(column + 1) + ": ";
        }
        throw PlatformError(tree_.subject + " cannot be read: " + place + std::string(complaint) + ".");
    }

    template <class Value>
    bool add(Value value)
    {
        tree_.nodes.push_back({value, narrow(tree_.nodes.size() + 1), name_});
        return true;
    }

    template <class Value>
    bool open(Value value)
    {
        constexpr std::size_t deepest = 256;
        if (open_.size() == deepest)
            fail("lists and objects are nested too deeply");
        open_.push_back(tree_.nodes.size());
        return add(value);
    }

    bool close()
    {
        tree_.nodes[open_.back()].end = narrow(tree_.nodes.size());
        open_.pop_back();
        return true;
    }

    JsonTree& tree_;
    std::string_view bytes_;
    std::map<std::string, std::uint32_t, std::less<>> names_; ///< their indices in the tree
    std::uint32_t name_ = 0;                                  ///< of the next member
    std::vector<std::size_t> open_;                           ///< lists and objects that are still open
};

} // namespace

std::shared_ptr<const JsonTree> parseJsonTree(std::string_view bytes, std::string_view subject)
{
    auto tree = std::make_shared<JsonTree>();
    tree->subject = subject;
    TreeBuilder(*tree, bytes).build();
    tree->asked.resize(tree->nodes.size());
    return tree;
}

} // namespace corvane
