#pragma once

#include <QTabWidget>
#include <set>
#include <string>

#include "ui/form/form_page.h"
#include "ui/items/ctl_grid_page.h"

class QLabel;
class QPushButton;

namespace calyx::ui {

class ctlBoxPicture;

// The page of one junction box: the system as a picture, the data of cells and platforms as grids, and the
// box itself with its points and diagnostics as a form.
class ctlBox : public QTabWidget {
    Q_OBJECT

  public:
    ctlBox(DocumentSession& session, const ItemRef& item);

    bool FocusKey(const QString& key);
    void SetDiffering(const std::set<std::string>& keys);
    ctlBoxPicture& Picture() const { return *picture_; }

  signals:
    void KeyFocused(const QString& key);
    void ShowInLines(const QString& key);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QWidget* MakeSystem();
    QWidget* MakeBar();
    ctlGridPage* MakeGrid(const QStringList& headings, GridSource source, int name, const char* object);
    FormPage* MakeForm();
    void Follow();
    void Refresh();

    DocumentSession& session_;
    const ItemRef item_;
    ctlBoxPicture* picture_;
    QLabel* configuration_;
    ctlGridPage *cells_ = nullptr, *platforms_ = nullptr;
    FormPage* form_ = nullptr;
    bool stale_ = true;
};

}  // namespace calyx::ui
