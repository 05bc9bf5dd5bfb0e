#pragma once

#include <QWidget>
#include <vector>

#include "ui/document_session.h"
#include "ui/scales/scale_choices.h"

class QHBoxLayout;
class QToolButton;

namespace calyx::ui {

// The editor of a scale's source, as its kind has it: chips that are removed by a click, Enter or Delete
// and a button that adds one; a choice where there is one source; words where there is nothing to choose.
// It follows the document by itself. Its tool tip and its accessible description are those of whatever stands
// in it, and events of these that are not theirs reach it as they would reach a single control: the focus,
// F1, the menu.
class ctlScaleSource : public QWidget {
    Q_OBJECT

  public:
    ctlScaleSource(DocumentSession& session, int scale, QWidget* parent);

    void Refresh();
    bool HasChoice() const { return !controls_.empty(); }  // something that takes the focus

  signals:
    void ParameterWanted(const QString& key);

  protected:
    void focusInEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void Follow();
    struct Shows {
        std::int32_t kind = 0;
        std::vector<SourceChoice> present, offered;
        friend bool operator==(const Shows&, const Shows&) = default;
    };

    void Build();
    void OrderTabs();
    void BuildChips();
    void BuildChoice();
    void BuildNoPort();
    QToolButton* MakeChip(const SourceChoice& source);
    void Say(int text);
    void Adopt(QWidget* control);  // into the line and the focus
    void OfferMore(QToolButton* button);
    void Take(const std::vector<std::int32_t>& sources);
    void Remove(std::int32_t source);
    const CScale& Scale() const;
    const ResourceTexts& Texts() const { return session_.Context().texts; }

    DocumentSession& session_;
    int scale_;
    Shows shown_;
    QHBoxLayout* line_;
    QWidget* content_ = nullptr;
    std::vector<QWidget*> controls_;  // those that take the focus, in their order
    bool stale_ = false;
};

}  // namespace calyx::ui
