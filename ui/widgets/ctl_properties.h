#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "app/settings.h"
#include "ui/widgets/property_field.h"

class QCheckBox;
class QLabel;
class QScrollArea;

namespace calyx::ui {

// The properties that all of the chosen widgets have, from the rows of their kinds: by the alphabet or in
// groups, and below what the one with the cursor means. Both are preferences, and kept.
class ctlProperties : public QWidget {
    Q_OBJECT

  public:
    ctlProperties(DocumentSession& session, ScreenState& state, ScreenEdits& edits, Settings& settings);
    ~ctlProperties() override;

    // The field gets the cursor; empty: the first one. False: there is none.
    bool FocusField(std::string_view stem = {});

  private:
    QWidget* MakeSwitches();
    QCheckBox* MakeSwitch(int text, int tip, const char* name, bool on);
    void Follow();
    void Build();
    void Fill(QWidget& content);
    void PutInTabOrder();
    void Explain(const PropertyField* field);
    std::vector<std::string> Common() const;  // stems that all chosen widgets have, in the order of the first

    DocumentSession& session_;
    ScreenState& state_;
    ScreenEdits& edits_;
    Settings& settings_;
    QLabel* heading_;
    QScrollArea* area_;
    QLabel* help_;
    std::array<QCheckBox*, 2> switches_{};
    std::vector<std::unique_ptr<PropertyField>> fields_;
    std::vector<std::string> built_;  // what the fields are for
    WidgetKind kind_{};
};

}  // namespace calyx::ui
