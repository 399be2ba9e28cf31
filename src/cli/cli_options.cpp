#include "cli/cli_options.h"

#include <algorithm>

#include "cli/option_rules.h"

namespace quillet::cli {

namespace {

class Reader {
public:
    explicit Reader(const std::vector<std::string>& arguments) : arguments_(arguments) {}

    Parsed read() {
        if (arguments_.empty()) return {std::nullopt, helpText(), {}};
        if (const std::string text = textFor(arguments_[0]); !text.empty()) {
            return {std::nullopt, text, {}};
        }
        const auto command = std::ranges::find(kCommandNames, arguments_[0],
                                               [](auto& named) { return named.first; });
        if (command == std::end(kCommandNames)) {
            return fail("unknown command \"" + arguments_[0] + "\"");
        }
        options_.command = command->second;
        bool onlyInputs = false;
        for (index_ = 1; index_ < arguments_.size(); ++index_) {
            const std::string& word = arguments_[index_];
            if (onlyInputs || word.empty() || word[0] != '-' || word == "-") {
                options_.inputs.push_back(word);
            } else if (word == "--") {
                onlyInputs = true;  // what follows are inputs, even names that start with "-"
            } else if (const std::string text = textFor(word); !text.empty()) {
                return {std::nullopt, text, {}};
            } else if (const std::string problem = option(word); !problem.empty()) {
                return fail(problem);
            }
        }
        if (options_.inputs.empty()) return fail("no input given");
        if (const std::string problem = settleTogether(options_, given_); !problem.empty()) {
            return fail(problem);
        }
        return {options_, {}, {}};
    }

private:
    Parsed fail(const std::string& message) { return {std::nullopt, {}, message}; }

    // The text a word asks for instead of jobs; empty for any other word.
    static std::string textFor(const std::string& word) {
        if (word == "--help" || word == "-h") return helpText();
        if (word == "--version" || word == "-V") return versionText();
        return {};
    }

    // Applies the option `name`, taking the word after it when it wants a value; gives the
    // problem, empty when there is none.
    std::string option(const std::string& name) {
        const OptionRow* row = findOption(name);
        if (!row) return "unknown option " + name;
        std::string value;
        if (row->takes != Takes::Nothing) {
            if (index_ + 1 >= arguments_.size()) return name + " needs a value";
            value = arguments_[++index_];
        }
        if (const std::string problem = row->apply(options_, value); !problem.empty()) {
            return name + " takes " + problem;
        }
        given_.push_back({row, value});
        return {};
    }

    const std::vector<std::string>& arguments_;
    std::size_t index_ = 0;
    Options options_;
    std::vector<GivenOption> given_;
};

}  // namespace

Parsed parseArguments(const std::vector<std::string>& arguments) {
    return Reader(arguments).read();
}

}  // namespace quillet::cli
