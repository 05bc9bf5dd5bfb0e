#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <memory>
#include <string>

#include "ui/form/parameter.h"
#include "ui/form/references.h"

class QWidget;

namespace calyx::ui::form {

// What a person has entered so far.
struct Entry {
    enum class State {
        Right,       // `text` is for the document
        Unfinished,  // may become right by typing on
        Wrong,
    };
    State state = State::Right;
    std::string text = {};
    QString words = {};  // what is allowed, unless right
    // Wrong, but too much to type it again: it stays when the field is left, and the document keeps what
    // was last right.
    bool kept = false;
};

// The editor of one kind of value: shows the document's text and reads what was entered. It knows
// nothing of documents; its field does.
class Control : public QObject {
    Q_OBJECT

  public:
    virtual QWidget* Widget() const = 0;
    // The document's text, silently; a cursor stays where it is.
    virtual void Show(const std::string& text) = 0;
    // `leaving`: the person is done, so short forms count too (a year of two digits).
    virtual Entry Read(bool leaving) const = 0;
    // Asked before a value goes to the document: a person may want to keep what it would clear.
    virtual bool MayTake(const std::string& /*text*/) { return true; }
    // What belongs to the value and the control does not show: its sign "%", the name of what it names.
    virtual QString Sign() const { return {}; }
    // Whether the value is text that can be set in bold.
    virtual bool ShowsText() const { return true; }

  signals:
    // `typing`: one of several strokes that belong together.
    void Edited(bool typing);
};

// Makes the control of a parameter that has one of its own; nothing: the usual one.
using ControlMaker = std::function<std::unique_ptr<Control>(const Parameter& parameter, QWidget* parent)>;

// The control for a parameter, by list and kind. `texts` outlives it, and so does what `offers` asks: what
// the number of a reference can name.
std::unique_ptr<Control> MakeControl(const Parameter& parameter, const ResourceTexts& texts, QWidget* parent,
                                     const Offers& offers = {});

}  // namespace calyx::ui::form
