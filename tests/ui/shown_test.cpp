#include <QListWidget>
#include <QTest>
#include <QTreeView>
#include <set>

#include "comm/comparison.h"
#include "comm/download_plan.h"
#include "model/language/text.h"
#include "tests/support/model_fixture.h"
#include "ui/panes/pane_list.h"
#include "ui/panes/shown_lines.h"
#include "ui/text.h"
#include "ui/window/finder.h"

using namespace calyx;
using namespace calyx::test;

// What the views show of a document, without a window around them.
class ShownTest : public QObject {
    Q_OBJECT

  private slots:
    void ValuesCrossAndComeBack_data();
    void ValuesCrossAndComeBack();
    void SentencesShowEveryByte();
    void EveryLineHasOnePlace();
    void LinesOfPlacesAreTheFile();
    void LinesOfPlacesAreTheDownload();
    void FinderRanksAndNarrows();
    void DifferencesAgainstAnIndicator_data();
    void DifferencesAgainstAnIndicator();
    void PaneListKeepsItsPlaceAndActs();

  private:
    CIndicator Sample(const char* name) {
        CIndicator document(context_);
        document.LoadText(ReadFile(std::string(CALYX_DATA_DIR "/samples/") + name), name);
        return document;
    }

    TestContext context_{CALYX_DATA_DIR};
};

namespace {

constexpr const char* kSamples[] = {"truck-scale.mrn", "batching-plant.mrn", "silo.mrn",
                                    "checkweigher-line.mrn"};

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
}

std::vector<std::string> SentBy(const CIndicator& document, const Target& target) {
    DownloadOptions options;
    options.mask = 1 + 2 + 4 + 8 + 16;
    return SendingOrder(document, options, target);
}

}  // namespace

void ShownTest::ValuesCrossAndComeBack_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("shown");
    QTest::newRow("plain") << QByteArray("GATE-N") << "GATE-N";
    QTest::newRow("code page") << QByteArray("M\xFCller \x80") << QString::fromUtf8("Müller €");
    QTest::newRow("UTF-8") << QByteArray("M\xC3\xBCller") << QString::fromUtf8("Müller");
    QTest::newRow("control characters") << QByteArray("a\tb\0c", 5) << QString::fromUtf8("a␉b␀c");
    QTest::newRow("empty") << QByteArray("") << "";
}

void ShownTest::ValuesCrossAndComeBack() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, shown);
    const std::string value = bytes.toStdString();
    QCOMPARE(ui::ShownValue(value), shown);
    QVERIFY(ui::ValueBytes(shown, value) == value);
    // A line end that was typed as its picture does not break the line.
    QVERIFY(ui::ValueBytes(QString::fromUtf8("a␍␊b"), value).find_first_of("\r\n") == std::string::npos);
}

void ShownTest::SentencesShowEveryByte() {
    // A label in UTF-8 and a value that is none in one sentence.
    QCOMPARE(ui::Shown("52 \xC2\xB0, M\xFCller"), QString::fromUtf8("52 °, Müller"));
    QCOMPARE(ui::Shown("\xE2\x82"), QString::fromUtf8("â‚"));
    QCOMPARE(ui::PlainCaption("&Save as..."), "Save as");
}

void ShownTest::EveryLineHasOnePlace() {
    QVERIFY(ui::PlaceGroups().size() <= ui::kMostGroups);
    for (const char* name : kSamples) {
        CIndicator document = Sample(name);
        for (const KeyValue& line : document.Lines()) {
            int places = 0;
            for (const ui::Place* place : ui::AllPlaces()) {
                if (document.FindSection(place->section)->Owns(line.key) && ui::Holds(*place, line.key))
                    ++places;
            }
            QVERIFY2(places == 1, line.key.c_str());
        }
    }
    CIndicator document = Sample("silo.mrn");
    QCOMPARE(ui::PlaceOf(document, "edp.alias#1")->title, ui::PlaceOf(document, "STR.TOKEN#1")->title);
    QVERIFY(ui::PlaceOf(document, "HARDWARE") != ui::PlaceOf(document, "EDP.ALIAS#1"));
    QVERIFY(ui::PlaceOf(document, "NO.SUCH") == nullptr);
}

void ShownTest::LinesOfPlacesAreTheFile() {
    CIndicator document = Sample("batching-plant.mrn");
    const auto saved = document.Lines();
    document.Import({{"UID", "OTHER"}});
    std::set<std::string> keys, changed;
    for (const ui::Place* place : ui::AllPlaces()) {
        for (const auto& line : ui::LinesOfPlace(document, *place, {}, Target::Everything(), saved)) {
            QVERIFY(line.sent);
            QVERIFY2(keys.insert(line.key).second, line.key.c_str());
            if (line.changed) changed.insert(line.key);
        }
    }
    QCOMPARE(keys.size(), document.Lines().size());
    QVERIFY(changed == std::set<std::string>{"UID"});
}

void ShownTest::LinesOfPlacesAreTheDownload() {
    CIndicator document = Sample("truck-scale.mrn");
    for (const std::string_view version : kVersions) {
        const Target target{.version = VersionBit(version)};
        std::set<std::string> sent;
        for (const KeyValue& line : ReadLines(Joined(SentBy(document, target)))) {
            sent.insert(line.key + "=" + line.value);
        }
        std::set<std::string> shown;
        for (const ui::Place* place : ui::AllPlaces()) {
            for (const auto& line : ui::LinesOfPlace(document, *place, {}, target, document.Lines())) {
                if (line.sent) shown.insert(line.key + "=" + line.value);
                if (!line.gate.Ungated()) QVERIFY(!line.sent && !target.Opens(line.gate));
            }
        }
        QVERIFY2(shown == sent, std::string(version).c_str());
    }
}

void ShownTest::FinderRanksAndNarrows() {
    CIndicator document = Sample("batching-plant.mrn");
    ui::Finder finder;
    finder.Read(document);
    const auto first = [&](const char* typed) {
        const auto result = finder.Find(QString::fromUtf8(typed), 50);
        return result.hits.empty() ? QString() : result.hits.front().key;
    };
    QCOMPARE(first("uid"), "UID");                      // by key
    QCOMPARE(first("Unit I"), "UID");                   // by label
    QCOMPARE(first("delta ready"), "CONTACT.COMPANY");  // by value
    QCOMPARE(first("often shown renewed"), "DSPRATE");  // by help, words in any order
    QCOMPARE(first("24HOUR"), "TIMEFMT");               // by the word in the line ...
    QCOMPARE(first("24 hours"), "TIMEFMT");             // ... and by what is shown for it
    QCOMPARE(first("agghop"), "SC.ALIAS#1");            // a kept line
    QCOMPARE(first("   "), "");
    QCOMPARE(first("zzzz"), "");
    const auto limited = finder.Find("sp.", 3);
    QCOMPARE(limited.hits.size(), std::size_t{3});
    QCOMPARE(limited.more + 3, finder.Find("sp.", 10000).hits.size());
}

void ShownTest::DifferencesAgainstAnIndicator_data() {
    QTest::addColumn<QString>("change");  // a line put before the dump, or "-KEY" taken out of it
    QTest::addColumn<QString>("different");
    QTest::newRow("equal") << ""
                           << "";
    QTest::newRow("another value") << "UID=OTHER"
                                   << "UID: GATE-N, OTHER";
    QTest::newRow("missing there") << "-UID"
                                   << "UID: GATE-N, (none)";
    QTest::newRow("only there") << "SC.SRC#9=A,1"
                                << "SC.SRC#9: NONE, A,1";
    QTest::newRow("its own version") << "VERSION=V2.08.01"
                                     << "";
    QTest::newRow("its own cards") << "HARDWARE=9,9,9"
                                   << "";
    QTest::newRow("small letters") << "uid=OTHER"
                                   << "UID: GATE-N, OTHER";
    QTest::newRow("no parameter") << "SERIAL=12345"
                                  << "";
}

void ShownTest::DifferencesAgainstAnIndicator() {
    QFETCH(QString, change);
    QFETCH(QString, different);
    const CIndicator document = Sample("truck-scale.mrn");
    const Target target;
    std::string dump;
    for (const std::string& line : SentBy(document, target)) {
        const bool taken = change.startsWith('-') && StartsNoCase(line, change.mid(1).toStdString() + "=");
        if (!taken) dump += line + "\r\n";
    }
    if (!change.startsWith('-')) dump = change.toStdString() + "\r\n" + dump;  // the first occurrence counts
    QStringList found;
    constexpr unsigned kEverything = 31;  // but the program file, which has no parameters
    const Held held(document.Context(), dump, "DUMPALL");
    const ChangeSet changes = AgainstIndicator(document, held, kEverything, target);
    for (const Change& c : changes.Changes()) {
        found += ui::Shown(c.key + ": " + c.before.value_or("(none)") + ", " + c.after.value_or("(none)"));
    }
    QCOMPARE(found.join("; "), different);
}

void ShownTest::PaneListKeepsItsPlaceAndActs() {
    ui::PaneList list("name", {"A", "B"}, 0);
    list.SetEmptyText("nothing yet");
    QVERIFY(list.currentWidget() != list.View());
    using Row = ui::PaneList::Row;
    list.SetRows({Row{.cells = {"1", "x"}, .key = "K1", .action = "Go"}, Row{.cells = {"2", "y"}}});
    QCOMPARE(list.currentWidget(), list.View());
    list.View()->setCurrentIndex(list.View()->model()->index(1, 0));
    list.SetRows({Row{.cells = {"0", "w"}}, Row{.cells = {"1", "x"}, .key = "K1", .action = "Go"},
                  Row{.cells = {"2", "z"}}});
    QCOMPARE(list.View()->currentIndex().row(), 2);
    QCOMPARE(list.AsText(), "0\tw\n1\tx\n2\tz\n");

    QStringList chosen, acted;
    connect(&list, &ui::PaneList::Chosen, this, [&](const QString& key) { chosen += key; });
    connect(&list, &ui::PaneList::Acted, this, [&](const QString& key) { acted += key; });
    const auto at = [&](int row, int column) { return list.View()->model()->index(row, column); };
    emit list.View()->activated(at(1, 0));
    emit list.View()->activated(at(2, 0));  // leads nowhere
    emit list.View()->clicked(at(1, 0));    // not the action
    emit list.View()->clicked(at(1, 2));
    emit list.View()->clicked(at(0, 2));  // has none
    QCOMPARE(chosen, QStringList{"K1"});
    QCOMPARE(acted, QStringList{"K1"});
}

QTEST_MAIN(ShownTest)
#include "shown_test.moc"
