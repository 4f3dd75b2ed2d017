#include "autocli/cli/CommandLineSplitter.h"

#include <algorithm>

namespace Tindra {
namespace AutoCli {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// The first character that is neither blank nor a double quote decides whether the line is
// a comment; quotes do not count, so a quoted "#" still opens one.
bool IsCommentLine(std::string const& line) {
    for (char c : line) {
        if (!IsBlank(c) && c != '"') {
            return c == '#';
        }
    }
    return false;
}

void AddWord(std::string& word, std::vector<std::string>& words) {
    word.erase(std::remove(word.begin(), word.end(), '"'), word.end());
    words.push_back(std::move(word));
    word.clear();
}

}  // namespace

std::vector<std::string> SplitCommandLine(std::string const& line) {
    std::vector<std::string> words;
    if (IsCommentLine(line)) {
        return words;
    }
    // Words are collected with their quotes so that a word written as "" still counts as
    // one (an empty value); the quotes go when the word is complete.
    std::string word;
    bool quoted = false;
    for (char c : line) {
        if (c == '"') {
            quoted = !quoted;
            word += c;
        } else if (IsBlank(c) && !quoted) {
            if (!word.empty()) {
                AddWord(word, words);
            }
        } else {
            word += c;
        }
    }
    if (!word.empty()) {
        AddWord(word, words);
    }
    return words;
}

}  // namespace AutoCli
}  // namespace Tindra
