#pragma once

#include <QFrame>

#include "model/language/resource_texts.h"

class QHBoxLayout;
class QLabel;
class QPushButton;
class QToolButton;

namespace calyx::ui {

// A strip of the window that is seen only while there is something to tell: the words, what can be done
// about it, and a button that puts it away.
class NoteStrip : public QFrame {
    Q_OBJECT

  public:
    // `name` is the object name; those of its parts are "<name>Words" and "<name>Close".
    NoteStrip(const ResourceTexts& texts, const QString& name);

    void Tell(const QString& words);  // shows it

  protected:
    QPushButton* AddButton(const char* name, const QString& caption);
    QLabel* Words() const { return words_; }

  private:
    QLabel* words_;
    QToolButton* close_;
    QHBoxLayout* buttons_;
};

}  // namespace calyx::ui
