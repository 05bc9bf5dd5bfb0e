#pragma once

#include <memory>
#include <string>

#include "model/language/broken_rules.h"
#include "model/language/dictionary.h"
#include "model/language/read_report.h"
#include "model/language/section.h"
#include "model/widgets/widget_fields.h"

namespace calyx {

// What a screen editor holds of a widget, in pixels of the screen. A kind without a place or size of its
// own leaves these members alone: a scale's style decides where it stands, a symbol has its own size.
struct WidgetArea {
    int left = 0, top = 0, width = 0, height = 0;
    bool visible = true;

    friend bool operator==(const WidgetArea&, const WidgetArea&) = default;
};

// A widget of any kind. Setters raise 10002 for a value out of range and change nothing then; everything
// before the widget's Initialize raises 10006.
class IWidgetData {
  public:
    virtual ~IWidgetData() = default;

    virtual WidgetKind WidgetType() const = 0;
    virtual int WidgetNumber() const = 0;  // 1 to 32767, in the key of its line
    virtual void SetWidgetNumber(int number) = 0;
    virtual int ScreenNumber() const = 0;  // 1 to 20
    virtual void SetScreenNumber(int screen) = 0;

    static WidgetArea ScreenControl() { return {0, 0, kScreenWidth, kScreenHeight, true}; }
    WidgetArea WidgetControl() const {
        WidgetArea control;
        SetClassToControl(control);
        return control;
    }
    virtual void SetClassToControl(WidgetArea& control) const = 0;  // from the widget to the editor
    virtual void SetControlToClass(const WidgetArea& control) = 0;  // and back

    virtual std::unique_ptr<IWidgetData> Copy() const = 0;
    virtual std::string Record() const = 0;      // the value of its line
    virtual std::string StoreState() const = 0;  // its line, ended by CR LF
    virtual bool IsDirty() const = 0;
    // Rules of the widget by itself. Rule keys are its line's.
    virtual void Validate(CBrokenRules& rules) const = 0;
    bool IsValid() const {
        CBrokenRules rules;
        Validate(rules);
        return rules.Count() == 0;
    }
    // Its fields one by one, in the order of the record, for a property list.
    virtual const Item& Properties() const = 0;
    virtual Item& Properties() = 0;
    // The constant of its name in the import file; nothing without one.
    virtual std::string GetIWriteImportDef() const = 0;
};

}  // namespace calyx
