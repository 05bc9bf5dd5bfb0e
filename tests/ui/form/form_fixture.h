#pragma once

#include <QtTest>

#include "tests/support/model_fixture.h"
#include "ui/form/form_page.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

// The General page over the program's own texts and lists, shown without a screen.
struct FormFixture {
    test::TestContext context{CALYX_DATA_DIR};
    DocumentSession session{context};
    FormPage page{session, {"general"}};

    FormFixture() {
        ApplyTheme(*qApp, Theme::Light);
        page.resize(1000, 700);
        page.show();
        page.activateWindow();
        QApplication::setActiveWindow(&page);
        QCoreApplication::processEvents();
    }

    template <class Widget = QWidget>
    Widget* Get(const char* name) {
        return page.findChild<Widget*>(QLatin1String(name));
    }
    QLineEdit* Line(const char* key) { return Get<QLineEdit>(key); }
    QLabel* Message(const char* key) { return Get<QLabel>((std::string(key) + ".message").c_str()); }
    QString MarkWords(const char* key) { return Get((std::string(key) + ".mark").c_str())->toolTip(); }
    std::string Value(const char* key) { return session.Document().Value(key).value_or("(none)"); }

    // As a person does: into the field, all that is there replaced.
    void Type(const char* key, const QString& text) {
        Line(key)->setFocus(Qt::TabFocusReason);
        Line(key)->selectAll();
        if (text.isEmpty()) QTest::keyClick(Line(key), Qt::Key_Delete);
        for (const QChar c : text) {  // QTest's own clicks know ASCII alone
            QKeyEvent stroke(QEvent::KeyPress, 0, Qt::NoModifier, c);
            QApplication::sendEvent(Line(key), &stroke);
        }
    }
    void LeaveTo(const char* key) { Get(key)->setFocus(Qt::TabFocusReason); }
};

}  // namespace calyx::ui
