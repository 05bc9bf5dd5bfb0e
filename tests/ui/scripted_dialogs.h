#pragma once

#include <QList>
#include <QStringList>
#include <deque>

#include "ui/dialogs/dialogs.h"

namespace calyx::test {

// Answers in the user's place. Answers are given in advance, in order; a question without one is cancelled
// and stands in `unexpected`.
class ScriptedDialogs : public ui::Dialogs {
  public:
    void Answer(const QString& button) { buttons_.push_back(button); }
    void AnswerFile(const QString& path) { files_.push_back(path); }

    QList<ui::Question> asked;
    QStringList unexpected;
    bool AllAnswersUsed() const { return buttons_.empty() && files_.empty(); }

    int Ask(QWidget*, const ui::Question& question) override {
        asked.append(question);
        const int last = static_cast<int>(question.buttons.size()) - 1;
        if (buttons_.empty()) {
            if (last > 0) unexpected += question.text;
            return last;
        }
        const QString wanted = buttons_.front();
        const auto place = static_cast<int>(question.buttons.indexOf(wanted));
        if (place < 0) {
            unexpected += question.text + QStringLiteral(" has no button ") + wanted;
            return last;
        }
        buttons_.pop_front();
        return place;
    }
    QString AskOpenFile(QWidget*, const ui::FileQuestion& question) override { return NextFile(question); }
    QString AskSaveFile(QWidget*, const ui::FileQuestion& question) override { return NextFile(question); }

  private:
    QString NextFile(const ui::FileQuestion& question) {
        if (files_.empty()) {
            unexpected += question.title;
            return {};
        }
        const QString path = files_.front();
        files_.pop_front();
        return path;
    }

    std::deque<QString> buttons_;
    std::deque<QString> files_;
};

}  // namespace calyx::test
