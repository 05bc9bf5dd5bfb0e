#include "comm/calibration/certificate.h"

#include <algorithm>
#include <vector>

namespace calyx {

namespace {

// Numbers of texts.
constexpr int kTitle = 40350, kScale = 40351, kIndicator = 40352, kWhere = 40353, kDate = 40354, kWho = 40355,
              kDocument = 40356, kValue = 40357, kBefore = 40358, kAfter = 40359, kZero = 40360,
              kWeight = 40361, kSpan = 40362, kPointWeight = 40363, kPointCount = 40364, kSignature = 40365;

struct Fact {
    std::string name, value;
};
struct Entry {
    std::string name, before, after;
};

std::vector<Fact> Facts(const CalibrationCertificate& c, const ResourceTexts& texts) {
    const std::string scale = std::to_string(c.scale);
    std::vector<Fact> facts{{texts.Text(kScale), c.alias.empty() ? scale : scale + ", " + c.alias},
                            {texts.Text(kIndicator), c.indicator},
                            {texts.Text(kWhere), c.where},
                            {texts.Text(kDate), c.date},
                            {texts.Text(kWho), c.who}};
    if (!c.document.empty()) facts.push_back({texts.Text(kDocument), c.document});
    return facts;
}

std::vector<Entry> Entries(const CalibrationCertificate& c, const ResourceTexts& texts) {
    const CalibrationValues& a = c.before;
    const CalibrationValues& b = c.after;
    const auto weight = [&c](const std::string& value) {
        return c.units.empty() ? value : value + " " + c.units;
    };
    std::vector<Entry> entries{{texts.Text(kWeight), weight(a.testWeight), weight(b.testWeight)},
                               {texts.Text(kZero), a.zeroCount, b.zeroCount},
                               {texts.Text(kSpan), a.spanCount, b.spanCount}};
    for (std::size_t i = 0; i < a.linearWeights.size(); ++i) {
        const std::string point = std::to_string(i + 1);
        entries.push_back(
            {texts.Format(kPointWeight, {point}), weight(a.linearWeights[i]), weight(b.linearWeights[i])});
        entries.push_back({texts.Format(kPointCount, {point}), a.linearCounts[i], b.linearCounts[i]});
    }
    return entries;
}

std::string Padded(std::string text, std::size_t width) {
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

std::string Escaped(const std::string& text) {
    std::string html;
    for (const char c : text) {
        if (c == '<') {
            html += "&lt;";
        } else if (c == '>') {
            html += "&gt;";
        } else if (c == '&') {
            html += "&amp;";
        } else {
            html += c;
        }
    }
    return html;
}

}  // namespace

std::string CertificateText(const CalibrationCertificate& certificate, const ResourceTexts& texts) {
    constexpr std::size_t kName = 26, kColumn = 18;
    std::string text = texts.Text(kTitle) + "\n\n";
    for (const Fact& fact : Facts(certificate, texts)) text += Padded(fact.name, kName) + fact.value + "\n";
    text += "\n" + Padded(texts.Text(kValue), kName) + Padded(texts.Text(kBefore), kColumn) +
            texts.Text(kAfter) + "\n";
    for (const Entry& entry : Entries(certificate, texts))
        text += Padded(entry.name, kName) + Padded(entry.before, kColumn) + entry.after + "\n";
    return text + "\n" + texts.Text(kSignature) + " ______________________________\n";
}

std::string CertificateHtml(const CalibrationCertificate& certificate, const ResourceTexts& texts) {
    const std::string title = Escaped(texts.Text(kTitle));
    std::string html =
        "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>" + title +
        "</title>\n<style>body{font-family:sans-serif;margin:2em}table{border-collapse:collapse;margin:1em 0}"
        "th,td{text-align:left;padding:.25em 1.5em .25em 0;border-bottom:1px solid "
        "#999}</style></head>\n<body><h1>" +
        title + "</h1>\n<table>\n";
    for (const Fact& fact : Facts(certificate, texts))
        html += "<tr><th>" + Escaped(fact.name) + "</th><td>" + Escaped(fact.value) + "</td></tr>\n";
    html += "</table>\n<table>\n<tr><th>" + Escaped(texts.Text(kValue)) + "</th><th>" +
            Escaped(texts.Text(kBefore)) + "</th><th>" + Escaped(texts.Text(kAfter)) + "</th></tr>\n";
    for (const Entry& entry : Entries(certificate, texts)) {
        html += "<tr><td>" + Escaped(entry.name) + "</td><td>" + Escaped(entry.before) + "</td><td>" +
                Escaped(entry.after) + "</td></tr>\n";
    }
    return html + "</table>\n<p>" + Escaped(texts.Text(kSignature)) +
           " ______________________________</p>\n</body></html>\n";
}

}  // namespace calyx
