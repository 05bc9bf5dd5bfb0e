// The dictionary against the plainest reading of the same text: character by character, keys in capitals.

#include <map>
#include <vector>

#include "fuzz/require.h"
#include "model/language/dictionary.h"
#include "model/language/text.h"

namespace {

using namespace calyx;
using namespace calyx::fuzz;

struct PlainLine {
    std::string key, value;
};

// A line ends with LF, CR LF or CR; one without "=", or with nothing before it, is no parameter.
std::vector<PlainLine> PlainLines(const std::string& text) {
    std::vector<PlainLine> lines;
    std::string line;
    const auto end = [&] {
        const std::size_t equals = line.find('=');
        if (equals != std::string::npos && equals != 0)
            lines.push_back({line.substr(0, equals), line.substr(equals + 1)});
        line.clear();
    };
    for (const char c : text) {
        if (c == '\r' || c == '\n') {
            end();
        } else {
            line += c;
        }
    }
    end();
    return lines;
}

// Upper-case keys with the value that counts.
std::map<std::string, std::string> PlainValues(const std::vector<PlainLine>& lines) {
    std::map<std::string, std::string> values;
    for (const PlainLine& line : lines) values.emplace(Upper(line.key), line.value);
    return values;
}

void CompareRuns(const Dictionary& dictionary) {
    const Dictionary::Entry* next = dictionary.Entries().data();
    for (const Dictionary::Run& run : dictionary.Runs()) {
        Require(run.entries.data() == next && !run.entries.empty(), "runs follow one another");
        next += run.entries.size();
        for (const Dictionary::Entry& entry : run.entries)
            Require(entry.key.starts_with(run.head), "a run's keys begin alike");
    }
    Require(next == dictionary.Entries().data() + dictionary.Entries().size(), "runs hold all entries");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto plain = PlainLines(text);
    Dictionary dictionary(text);
    Require(dictionary.Entries().size() + dictionary.Duplicates().size() == plain.size(), "no line is lost");
    const auto values = PlainValues(plain);
    Require(dictionary.Entries().size() == values.size(), "of equal keys one stays");
    for (const PlainLine& line : plain) {
        const Dictionary::Entry* found = dictionary.Peek(line.key);
        Require(found != nullptr, "a key is found");
        Require(found->value == values.at(Upper(line.key)), "the first of equal keys counts");
        const std::string another = line.key + "?";
        Require((dictionary.Peek(another) != nullptr) == values.contains(Upper(another)),
                "only keys that are there are found");
    }
    CompareRuns(dictionary);
    return 0;
}
