#include "ui/form/choice_controls.h"

#include <QAbstractItemView>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>

#include "ui/form/bytes.h"
#include "ui/form/form_texts.h"
#include "ui/form/widths.h"
#include "ui/form/words.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"

namespace calyx::ui::form {

namespace {
constexpr int kNarrowest = 192;  // of a box with long texts, so that two columns fit beside the lines
}

void ChoiceBox::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

ChoiceControl::ChoiceControl(const CTextList& list, QWidget* parent) : box_(new ChoiceBox(parent)) {
    const QFont plain = box_->font();
    for (const auto& entry : list) {
        box_->addItem(ToShown(entry.text),
                      QByteArray(entry.key.data(), static_cast<qsizetype>(entry.key.size())));
    }
    // As wide as its longest text in bold, in steps so that boxes end in one line; the list stays plain.
    QFont bold = plain;
    bold.setBold(true);
    box_->setFont(bold);
    const int width = InSteps(box_->sizeHint().width());
    box_->setMinimumWidth(std::min(width, kNarrowest));
    box_->setMaximumWidth(width);
    box_->setFont(plain);
    box_->view()->setFont(plain);
    box_->setFocusPolicy(Qt::StrongFocus);
    connect(box_, &QComboBox::currentIndexChanged, this, [this] { emit Edited(false); });
}

void ChoiceControl::Show(const std::string& text) {
    const QSignalBlocker quiet(box_);
    box_->setCurrentIndex(box_->findData(QByteArray(text.data(), static_cast<qsizetype>(text.size()))));
    // A word that the list does not have shows as it stands.
    box_->setPlaceholderText(box_->currentIndex() < 0 ? ToShown(text) : QString());
}

Entry ChoiceControl::Read(bool) const {
    return {.text = box_->currentData().toByteArray().toStdString()};
}

SwitchControl::SwitchControl(SwitchWords words, QWidget* parent)
    : words_(std::move(words)), box_(new QCheckBox(parent)) {
    box_->setFixedSize(metrics::kControlHeight, metrics::kControlHeight);
    connect(box_, &QCheckBox::toggled, this, [this] { emit Edited(false); });
}

void SwitchControl::Show(const std::string& text) {
    const QSignalBlocker quiet(box_);
    box_->setChecked(text == words_.on);
}

Entry SwitchControl::Read(bool) const {
    return {.text = box_->isChecked() ? words_.on : words_.off};
}

ReadOnlyControl::ReadOnlyControl(const Parameter& parameter, const ResourceTexts& texts, QWidget* parent)
    : texts_(texts), kind_(parameter.Info().kind), list_(parameter.List()), label_(new QLabel(parent)) {
    label_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label_->setMinimumHeight(metrics::kControlHeight);
    label_->setTextFormat(Qt::PlainText);
}

void ReadOnlyControl::Show(const std::string& text) {
    text_ = text;
    label_->setText(text.empty() ? Say(texts_, kNotKnown)
                                 : ValueWords(texts_, kind_, list_, text, label_->locale()));
    label_->setForegroundRole(text.empty() ? role::kQuietText : role::kText);
}

}  // namespace calyx::ui::form
