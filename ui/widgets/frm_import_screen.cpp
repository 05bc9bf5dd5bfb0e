#include "ui/widgets/frm_import_screen.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "ui/dialogs/screen_fit.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"
#include "ui/widgets/widget_texts.h"

namespace calyx::ui {

using namespace widget_text;

// A screen as the indicator shows it, at its own size.
class ScreenPreview final : public QWidget {
  public:
    ScreenPreview(CWidgets widgets, ScaleDisplays scales)
        : widgets_(std::move(widgets)), scales_(std::move(scales)) {
        setFixedSize(kScreenWidth + 2, kScreenHeight + 2);
    }
    const CWidgets& Widgets() const { return widgets_; }
    void Show(int screen, const QString& name) {
        screen_ = screen;
        setAccessibleName(name);
        update();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(palette().color(role::kBorder));
        painter.drawRect(0, 0, width() - 1, height() - 1);
        painter.translate(1, 1);
        ScreenPainter(widgets_, scales_).Paint(painter, screen_);
    }

  private:
    CWidgets widgets_;
    ScaleDisplays scales_;
    int screen_ = 1;
};

frmImportScreen::frmImportScreen(const CWidgets& from, const QString& file, ScaleDisplays scales, int onto,
                                 const ResourceTexts& texts, QWidget* parent)
    : QDialog(parent),
      texts_(texts),
      from_(new QComboBox),
      to_(new QComboBox),
      preview_(new ScreenPreview(from, std::move(scales))) {
    setObjectName(QStringLiteral("frmImportScreen"));
    setWindowTitle(Say(texts, kImportTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    from_->setObjectName(QStringLiteral("importFrom"));
    to_->setObjectName(QStringLiteral("importTo"));
    for (int screen = 1; screen <= kScreens; ++screen) {
        const QString number = QString::number(screen);
        const auto count = from.OnScreen(screen).size();
        if (count > 0) {
            from_->addItem(count == 1 ? Say(texts, kScreenWordsOne, number)
                                      : Say(texts, kScreenWords, number, QString::number(count)),
                           screen);
        }
        to_->addItem(number, screen);
    }
    to_->setCurrentIndex(onto - 1);
    auto* source = new QLabel(Say(texts, kImportFile, file));
    source->setTextFormat(Qt::PlainText);
    source->setWordWrap(true);
    auto* keeps = new QLabel(Say(texts, kImportKeeps));
    keeps->setWordWrap(true);
    keeps->setForegroundRole(role::kQuietText);
    auto* fromLabel = new QLabel(Say(texts, kImportFrom));
    fromLabel->setBuddy(from_);
    auto* toLabel = new QLabel(Say(texts, kImportTo));
    toLabel->setBuddy(to_);
    auto* add = new QPushButton(Say(texts, kImportAdd));
    add->setObjectName(QStringLiteral("cmdImport"));
    add->setDefault(true);
    auto* cancel = new QPushButton(Say(texts, kImportCancel));
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(add);
    buttons->addWidget(cancel);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(metrics::kGroups, metrics::kGroups, metrics::kGroups, metrics::kGroups);
    grid->setHorizontalSpacing(metrics::kRelated);
    grid->setVerticalSpacing(metrics::kRelated);
    grid->setColumnStretch(1, 1);
    grid->addWidget(source, 0, 0, 1, 2);
    grid->addWidget(fromLabel, 1, 0);
    grid->addWidget(from_, 1, 1);
    grid->addWidget(preview_, 2, 0, 1, 2, Qt::AlignHCenter);
    grid->addWidget(toLabel, 3, 0);
    grid->addWidget(to_, 3, 1);
    grid->addWidget(keeps, 4, 0, 1, 2);
    grid->addLayout(buttons, 5, 0, 1, 2);
    connect(from_, &QComboBox::currentIndexChanged, this, &frmImportScreen::ShowChosen);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(add, &QPushButton::clicked, this, [this] {
        emit Chosen(from_->currentData().toInt(), to_->currentData().toInt());
        accept();
    });
    ShowChosen();
}

void frmImportScreen::ShowChosen() {
    const int screen = from_->currentData().toInt();
    preview_->Show(screen, Say(texts_, kImportPreview, QString::number(screen)));
}

}  // namespace calyx::ui
