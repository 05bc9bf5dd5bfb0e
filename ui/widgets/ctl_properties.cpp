#include "ui/widgets/ctl_properties.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLocale>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"
#include "ui/widgets/widget_texts.h"
#include "ui/widgets/widget_words.h"

namespace calyx::ui {

using namespace widget_text;

ctlProperties::ctlProperties(DocumentSession& session, ScreenState& state, ScreenEdits& edits,
                             Settings& settings)
    : session_(session),
      state_(state),
      edits_(edits),
      settings_(settings),
      heading_(new QLabel),
      area_(new QScrollArea),
      help_(new QLabel) {
    setObjectName(QStringLiteral("ctlProperties"));
    setAccessibleName(Say(state_.Texts(), kPropertiesName));
    heading_->setFont(StrongFont());
    heading_->setObjectName(QStringLiteral("propertiesHeading"));
    heading_->setTextFormat(Qt::PlainText);
    heading_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setWidgetResizable(true);
    area_->setFocusPolicy(Qt::ClickFocus);  // its fields scroll it, so Tab passes it by
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    help_->setObjectName(QStringLiteral("propertyHelp"));
    help_->setFont(TextFont(TextSize::Small));
    help_->setForegroundRole(role::kQuietText);
    help_->setWordWrap(true);
    help_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    constexpr int kHelpLines = 3;
    help_->setMinimumHeight(kHelpLines * help_->fontMetrics().lineSpacing());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::kHalf);
    column->addWidget(heading_);
    column->addWidget(area_, 1);
    column->addWidget(help_);
    help_->setVisible(settings_.DispShowDescription);
    column->addWidget(MakeSwitches());
    connect(&state_, &ScreenState::ChosenChanged, this, &ctlProperties::Follow);
    connect(&state_, &ScreenState::WidgetsChanged, this, &ctlProperties::Follow);
    Build();
}

ctlProperties::~ctlProperties() = default;

QWidget* ctlProperties::MakeSwitches() {
    auto* alphabetic = MakeSwitch(kAlphabetic, kAlphabeticTip, "chkAlphabetic", settings_.DispAlphaPropView);
    auto* explain = MakeSwitch(kDescription, kDescriptionTip, "chkExplain", settings_.DispShowDescription);
    switches_ = {alphabetic, explain};
    connect(alphabetic, &QCheckBox::toggled, this, [this](bool on) {
        settings_.DispAlphaPropView = on;
        Build();
    });
    connect(explain, &QCheckBox::toggled, this, [this](bool on) {
        settings_.DispShowDescription = on;
        help_->setVisible(on);
    });
    auto* switches = new QWidget;
    auto* row = new QHBoxLayout(switches);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::kGroups);
    row->addWidget(alphabetic);
    row->addWidget(explain);
    row->addStretch(1);
    return switches;
}

QCheckBox* ctlProperties::MakeSwitch(int text, int tip, const char* name, bool on) {
    auto* box = new QCheckBox(Say(state_.Texts(), text));
    box->setObjectName(QLatin1String(name));
    box->setToolTip(Say(state_.Texts(), tip));
    box->setChecked(on);
    box->setMinimumHeight(metrics::kControlHeight);
    return box;
}

std::vector<std::string> ctlProperties::Common() const {
    std::vector<std::string> stems;
    bool first = true;
    for (const int number : state_.Chosen()) {
        const Item& item = state_.Widgets().widget(number).Properties();
        if (first) {
            for (std::size_t i = 0; i < item.RowCount(); ++i) stems.emplace_back(item.Info(i).stem);
        }
        first = false;
        std::erase_if(stems, [&](const std::string& stem) { return !item.Find(stem); });
    }
    // The styles of two kinds are not the same ones, and two names cannot be alike.
    const bool several = state_.Chosen().size() > 1;
    const bool mixed = std::any_of(state_.Chosen().begin(), state_.Chosen().end(), [this](int number) {
        return state_.Widgets().widget(number).WidgetType() !=
               state_.Widgets().widget(state_.Chosen().front()).WidgetType();
    });
    std::erase_if(stems, [&](const std::string& stem) {
        return (mixed && stem == "Style") || (several && stem == "Name");
    });
    return stems;
}

void ctlProperties::Follow() {
    const bool same = !state_.Chosen().empty() && Common() == built_ &&
                      (state_.Widgets().widget(state_.Chosen().front()).WidgetType() == kind_);
    if (!same) return Build();
    heading_->setText(WidgetsWords(state_.Texts(), state_.Widgets(), state_.Chosen()));
    for (const auto& field : fields_) field->Refresh();
    if (!isAncestorOf(window()->focusWidget())) Explain(nullptr);
}

void ctlProperties::Build() {
    const ResourceTexts& texts = state_.Texts();
    // The fields go before their widgets, and the cursor must not stay in one that goes.
    if (area_->widget() != nullptr && area_->widget()->isAncestorOf(focusWidget())) area_->setFocus();
    fields_.clear();
    built_ = Common();
    auto* content = new QWidget;
    if (state_.Chosen().empty() || built_.empty()) {
        heading_->setText(Say(texts, kPropertiesName));
        auto* hint = new QLabel(Say(texts, state_.Chosen().empty() ? kNothingChosen : kNoCommon));
        hint->setWordWrap(true);
        hint->setForegroundRole(role::kQuietText);
        auto* column = new QVBoxLayout(content);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(hint);
        column->addStretch();
        help_->clear();
    } else {
        kind_ = state_.Widgets().widget(state_.Chosen().front()).WidgetType();
        heading_->setText(WidgetsWords(texts, state_.Widgets(), state_.Chosen()));
        Fill(*content);
        for (const auto& field : fields_) field->Refresh();
        Explain(nullptr);
    }
    area_->setWidget(content);
    PutInTabOrder();
}

// The content comes last by itself, and its fields in the order of their making.
void ctlProperties::PutInTabOrder() {
    QWidget* before = area_;
    const auto follow = [&before](QWidget* next) {
        setTabOrder(before, next);
        before = next;
    };
    for (const auto& field : fields_) follow(field->ControlWidget());
    for (QCheckBox* box : switches_) follow(box);
}

void ctlProperties::Fill(QWidget& content) {
    const Item& like = state_.Widgets().widget(state_.Chosen().front()).Properties();
    for (const std::string& stem : built_) {
        fields_.push_back(
            std::make_unique<PropertyField>(session_, state_, edits_, like, *like.Find(stem), &content));
    }
    const bool alphabetic = settings_.DispAlphaPropView;
    std::stable_sort(fields_.begin(), fields_.end(), [&](const auto& a, const auto& b) {
        return alphabetic ? QString::localeAwareCompare(a->Caption(), b->Caption()) < 0
                          : a->Group() < b->Group();
    });
    auto* grid = new QGridLayout(&content);
    grid->setContentsMargins(0, 0, metrics::kHalf, 0);
    grid->setHorizontalSpacing(metrics::kRelated);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(1, 1);
    int line = 0, group = 0;
    for (const auto& field : fields_) {
        if (!alphabetic && field->Group() != group) {
            group = field->Group();
            auto* heading = new QLabel(Say(state_.Texts(), group), &content);
            heading->setForegroundRole(role::kQuietText);
            heading->setContentsMargins(0, line == 0 ? 0 : metrics::kHalf, 0, 0);
            grid->addWidget(heading, line++, 0, 1, 3);
        }
        grid->addWidget(field->Label(), line, 0);
        // Without a unit the control has its room as well.
        const bool plain = field->Unit()->text().isEmpty();
        grid->addWidget(field->ControlWidget(), line, 1, 1, plain ? 2 : 1);
        if (!plain) grid->addWidget(field->Unit(), line, 2);
        field->Unit()->setHidden(plain);
        ++line;
        grid->addWidget(field->Message(), line++, 0, 1, 3);
        connect(field.get(), &PropertyField::Focused, this, [this, own = field.get()] {
            Explain(own);
            area_->ensureWidgetVisible(own->ControlWidget());
        });
    }
    grid->setRowStretch(line, 1);
}

void ctlProperties::Explain(const PropertyField* field) {
    if (field != nullptr) return help_->setText(field->Help());
    // Of the kind, while no field has the cursor.
    const bool several = state_.Chosen().size() > 1;
    help_->setText(several ? QString() : Say(state_.Texts(), kKindHelp + static_cast<int>(kind_)));
}

bool ctlProperties::FocusField(std::string_view stem) {
    for (const auto& field : fields_) {
        if (!stem.empty() && field->Stem() != stem) continue;
        field->ControlWidget()->setFocus(Qt::OtherFocusReason);
        return true;
    }
    return false;
}

}  // namespace calyx::ui
