#pragma once

#include <QScrollArea>
#include <QString>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "ui/document_session.h"
#include "ui/form/control.h"
#include "ui/form/item_ref.h"

namespace calyx::ui {

namespace form {
class Field;
class FieldGroup;
}  // namespace form

// The editor of one item of a section, made from its rows and nothing else: every row with a group, in
// table order, under the group's heading. It follows the document; every edit goes through the session.
class FormPage : public QScrollArea {
    Q_OBJECT

  public:
    // Letters that the main menu uses; no field gets them.
    static inline const QString kMenuLetters = QStringLiteral("FEVITH");

    // `leftOut`: stems of rows that are edited elsewhere. `make`: for controls of their own.
    FormPage(DocumentSession& session, ItemRef item, QWidget* parent = nullptr,
             const QString& reservedLetters = kMenuLetters, const std::vector<std::string>& leftOut = {},
             const form::ControlMaker& make = {});
    ~FormPage() override;

    // Scrolls to the field, gives it the focus and lights it up. A line of several that one field holds
    // leads to that field. False: the page does not show such a field at present.
    bool FocusKey(const QString& key);
    // Keys whose value differs from what the indicator holds, once that was compared; empty: not compared.
    void SetDiffering(const std::set<std::string>& keys);

  signals:
    // Both name the key of the field's line (of the first, where a field stands for several).
    void KeyFocused(const QString& key);
    void ShowInLines(const QString& key);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    enum class Stale { No, Changed, Replaced };  // what a page out of sight has not followed yet

    void Build(const QString& reservedLetters, const std::vector<std::string>& leftOut,
               const form::ControlMaker& make);
    void Follow(Stale what);
    void Refresh();
    void AlignLabels();

    DocumentSession& session_;
    ItemRef item_;
    std::vector<std::unique_ptr<form::Field>> fields_;
    std::vector<std::pair<form::FieldGroup*, std::vector<form::Field*>>> groups_;
    std::set<std::string> differing_;  // in capitals
    int labelWidth_ = 0;
    Stale stale_ = Stale::Replaced;
};

// Whether a section's item has rows for a page; otherwise its lines are edited as they are kept.
bool HasForm(const CIndicator& document, const ItemRef& item);

// The page of a section's item; nothing when it has none. All that a section needs for its editor are
// rows with groups.
FormPage* MakePage(DocumentSession& session, const ItemRef& item, QWidget* parent = nullptr);

}  // namespace calyx::ui
