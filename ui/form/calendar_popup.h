#pragma once

#include <QDate>
#include <QFrame>

#include "model/language/resource_texts.h"
#include "ui/theme/icons.h"

class QCalendarWidget;

namespace calyx::ui::form {

// A calendar below a date field; closes by itself.
class CalendarPopup : public QFrame {
    Q_OBJECT

  public:
    CalendarPopup(const ResourceTexts& texts, QWidget* field);
    void Open(const QDate& date);

  signals:
    void Chosen(const QDate& date);  // no valid date: none

  private:
    void SetStep(const ResourceTexts& texts, const char* button, IconName icon, int name);
    void Choose(const QDate& date);

    QCalendarWidget* calendar_;
};

}  // namespace calyx::ui::form
