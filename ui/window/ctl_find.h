#pragma once

#include <QFrame>
#include <QLineEdit>

#include "ui/document_session.h"
#include "ui/window/finder.h"

class QLabel;
class QListView;
class QPushButton;
class QStandardItemModel;

namespace calyx::ui {

// The find box. What fits shows below it as one types, below the filters that Tab leads to; Enter goes to
// the chosen one, Esc leaves.
class ctlFind : public QLineEdit {
    Q_OBJECT

  public:
    // The list of what was found lies over `window`, below the box.
    ctlFind(DocumentSession& session, QWidget* window);

    void Begin();  // takes the keys; what was typed before is marked
    int HitCount() const;
    QSize sizeHint() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  signals:
    void Chosen(const QString& key);
    void Left();  // by Esc

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    static constexpr std::size_t kMostHits = 50;

    void MakeFilters();
    unsigned Filters() const;
    Finder::Marks Marks() const;
    void Search();
    void Leave();
    void ShowList();
    void Choose(const QModelIndex& index);
    void Move(int rows);

    DocumentSession& session_;
    Finder finder_;
    bool stale_ = true;
    QFrame* popup_;
    QWidget* filterRow_;
    QList<QPushButton*> filters_;  // in the order of their bits
    QListView* list_;
    QLabel* note_;
    QStandardItemModel* model_;
};

}  // namespace calyx::ui
