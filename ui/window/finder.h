#pragma once

#include <QString>
#include <QStringList>
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

    // Takes the document's parameters as they are now.
    void Read(const CIndicator& document);
    Result Find(const QString& typed, std::size_t most) const;

  private:
    struct Entry {
        Hit hit;
        QString written;  // the value as its line has it
        QString help;
    };
    static int RankOf(const Entry& entry, const QStringList& words);

    std::vector<Entry> entries_;
};

}  // namespace calyx::ui
