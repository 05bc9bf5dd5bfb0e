#pragma once

#include <QString>
#include <QStringList>
#include <set>
#include <string>
#include <vector>

#include "model/document/indicator.h"

namespace calyx::ui {

// Finds parameters of a document, kept lines included, by the words typed: each must stand in label, key,
// value (as shown or as written), help or the name of the part, whatever its case.
class Finder {
  public:
    struct Hit {
        QString key;
        QString label;
        QString value;
        QString where;
        int rank = 0;  // less is better
    };
    struct Result {
        std::vector<Hit> hits;  // best first, at most `most`
        std::size_t more = 0;   // that were left out
    };

    // Which parameters are listed: those of which all the chosen ones hold.
    enum Filter : unsigned { kChanged = 1, kNotDefault = 2, kProblems = 4 };
    struct Marks {
        std::set<std::string> changed, problems;  // keys in capitals
    };

    // Takes the document's parameters as they are now.
    void Read(const CIndicator& document, const Marks& marks = {});
    // With filters nothing need be typed.
    Result Find(const QString& typed, std::size_t most, unsigned filters = 0) const;

  private:
    struct Entry {
        Hit hit;
        QString written;  // the value as its line has it
        QString help;
        unsigned holds = 0;  // of the filters
    };
    void ReadItem(const Item& item, const QString& where, const Marks& marks, const ResourceTexts& texts);
    static int RankOf(const Entry& entry, const QStringList& words);

    std::vector<Entry> entries_;
};

}  // namespace calyx::ui
