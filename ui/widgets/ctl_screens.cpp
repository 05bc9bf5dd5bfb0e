#include "ui/widgets/ctl_screens.h"

#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"
#include "ui/theme/tokens.h"
#include "ui/widgets/ctl_gauge.h"
#include "ui/widgets/ctl_palette.h"
#include "ui/widgets/ctl_properties.h"
#include "ui/widgets/ctl_screen.h"
#include "ui/widgets/ctl_screen_strip.h"
#include "ui/widgets/ctl_view_bar.h"
#include "ui/widgets/ctl_widget_list.h"
#include "ui/widgets/frm_import_screen.h"
#include "ui/widgets/screen_commands.h"
#include "ui/widgets/widget_texts.h"
#include "ui/widgets/widget_words.h"

namespace calyx::ui {

using namespace widget_text;

namespace {
constexpr int kSideWidth = 248;
}

ctlScreens::ctlScreens(DocumentSession& session, const PageTools& tools)
    : session_(session),
      tools_(tools),
      settings_(*tools.settings),
      state_(session),
      edits_(session, state_, [this] { return settings_.LockWidgets; }),
      commands_(new ScreenCommands(edits_, session.Context().texts, this)),
      palette_(new ctlPalette(session.Context().texts)),
      canvas_(new ctlScreen(session, state_, edits_, settings_)),
      area_(new QScrollArea),
      empty_(new QLabel(canvas_)),
      bar_(new ctlViewBar(session.Context().texts, settings_)),
      properties_(new ctlProperties(session, state_, edits_, settings_)) {
    setObjectName(QStringLiteral("ctlScreens"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(metrics::kPageEdge, 0, metrics::kPageEdge, metrics::kRelated);
    column->setSpacing(metrics::kHalf);
    column->addWidget(MakeTop());
    auto* parts = new QSplitter(Qt::Horizontal);
    parts->setChildrenCollapsible(false);
    parts->setHandleWidth(metrics::kGroups);
    parts->addWidget(MakeMiddle());
    parts->addWidget(MakeSide());
    parts->setStretchFactor(0, 1);
    column->addWidget(parts, 1);
    setFocusProxy(canvas_);
    Connect();
    ShowEmpty();
}

// The parts go before the state and the edits that they look at.
ctlScreens::~ctlScreens() {
    state_.disconnect();
    for (QWidget* part : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) delete part;
}

QWidget* ctlScreens::MakeTop() {
    auto* strip = new QHBoxLayout;
    strip->setSpacing(metrics::kGroups);
    strip->addWidget(new ctlScreenStrip(state_), 1);
    strip->addWidget(new ctlGauge(state_), 0, Qt::AlignVCenter);
    auto* top = new QWidget;
    auto* column = new QVBoxLayout(top);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::kHalf);
    auto* fromFile = new QToolButton;
    fromFile->setDefaultAction(commands_->Import());
    fromFile->setText(PlainCaption(commands_->Import()->text()) + QStringLiteral("..."));
    fromFile->setMinimumHeight(metrics::kControlHeight);
    fromFile->setFocusPolicy(Qt::StrongFocus);
    auto* kinds = new QHBoxLayout;
    kinds->setSpacing(metrics::kGroups);
    kinds->addWidget(palette_, 1);
    kinds->addWidget(fromFile, 0, Qt::AlignTop);
    column->addLayout(strip);
    column->addLayout(kinds);
    return top;
}

QWidget* ctlScreens::MakeMiddle() {
    area_->setObjectName(QStringLiteral("screenArea"));
    area_->setFrameShape(QFrame::NoFrame);
    area_->setWidgetResizable(true);
    area_->setFocusPolicy(Qt::NoFocus);
    area_->viewport()->installEventFilter(this);
    area_->setWidget(canvas_);
    empty_->setObjectName(QStringLiteral("screenEmpty"));
    empty_->setAlignment(Qt::AlignCenter);
    empty_->setWordWrap(true);
    canvas_->installEventFilter(this);
    empty_->setAttribute(Qt::WA_TransparentForMouseEvents);
    // On the display, which is pale in every theme.
    QPalette ink;
    ink.setColor(QPalette::WindowText, LightTokens().grey[5]);
    empty_->setPalette(ink);
    auto* row = new QHBoxLayout;
    row->setSpacing(metrics::kRelated);
    row->addWidget(commands_->MakeTools());
    row->addWidget(area_, 1);
    auto* middle = new QWidget;
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(metrics::kHalf);
    column->addLayout(row, 1);
    column->addWidget(bar_);
    return middle;
}

QWidget* ctlScreens::MakeSide() {
    auto* list = new ctlWidgetList(state_);
    connect(list, &ctlWidgetList::PropertiesWanted, this, [this] { properties_->FocusField(); });
    commands_->AttachTo(*list);
    list->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(list, &QWidget::customContextMenuRequested, this, [this, list](QPoint at) {
        commands_->MakeMenu(*list)->popup(list->viewport()->mapToGlobal(at));
    });
    auto* side = new QSplitter(Qt::Vertical);
    side->setChildrenCollapsible(false);
    side->setHandleWidth(metrics::kRelated);
    side->setMinimumWidth(kSideWidth);
    list->setMinimumHeight(3 * metrics::kControlHeight);
    side->addWidget(list);
    side->addWidget(properties_);
    side->setStretchFactor(1, 2);
    side->setSizes({120, 240});
    return side;
}

void ctlScreens::Connect() {
    commands_->AttachTo(*canvas_);
    connect(commands_->Import(), &QAction::triggered, this, &ctlScreens::Import);
    connect(palette_, &ctlPalette::Taken, this, [this](WidgetKind kind) {
        canvas_->SetPlacing(kind);
        palette_->ShowTaken(kind);
    });
    connect(palette_, &ctlPalette::GivenBack, this, [this] { canvas_->SetPlacing(std::nullopt); });
    connect(palette_, &ctlPalette::PlaceWanted, this, [this](WidgetKind kind) { canvas_->PlaceFree(kind); });
    connect(canvas_, &ctlScreen::PlacingEnded, this, [this] { palette_->ShowTaken(std::nullopt); });
    connect(canvas_, &ctlScreen::ZoomTurned, this, &ctlScreens::TurnZoom);
    connect(canvas_, &ctlScreen::PropertiesWanted, this, [this] { properties_->FocusField(); });
    connect(canvas_, &ctlScreen::MenuWanted, this,
            [this](const QPoint& at) { commands_->MakeMenu(*canvas_)->popup(at); });
    connect(bar_, &ctlViewBar::ViewChanged, canvas_, qOverload<>(&QWidget::update));
    connect(bar_, &ctlViewBar::ZoomTurned, this, &ctlScreens::TurnZoom);
    connect(bar_, &ctlViewBar::FitToggled, this, [this](bool fits) {
        fits_ = fits;
        ShowZoom();
    });
    connect(&state_, &ScreenState::ScreenShown, this, &ctlScreens::ShowEmpty);
    connect(&state_, &ScreenState::WidgetsChanged, this, &ctlScreens::ShowEmpty);
    connect(&state_, &ScreenState::ChosenChanged, this, [this] {
        if (state_.Lead() != 0) emit KeyFocused(KeyText(WidgetKey(state_.Lead())));
    });
}

bool ctlScreens::eventFilter(QObject* watched, QEvent* event) {
    if (watched == area_->viewport() && event->type() == QEvent::Resize) ShowZoom();
    if (watched == canvas_ && event->type() == QEvent::Resize) ShowEmpty();
    return QWidget::eventFilter(watched, event);
}

void ctlScreens::ShowZoom() {
    if (fits_) {
        // Without the scroll bars that the zoom before may have needed.
        const double fitting = ctlScreen::FittingZoom(area_->size());
        zoom_ = std::clamp(static_cast<int>(std::floor(fitting * 100)), ctlViewBar::kLeastZoom,
                           ctlViewBar::kMostZoom);
    }
    canvas_->SetZoom(zoom_ / 100.0);
    bar_->ShowZoom(zoom_, fits_);
    ShowEmpty();
}

void ctlScreens::TurnZoom(int steps) {
    fits_ = false;
    constexpr int kStep = ctlViewBar::kZoomStep;
    const int from = steps > 0 ? zoom_ / kStep : (zoom_ + kStep - 1) / kStep;
    zoom_ = std::clamp((from + steps) * kStep, ctlViewBar::kLeastZoom, ctlViewBar::kMostZoom);
    ShowZoom();
}

void ctlScreens::ShowEmpty() {
    const bool empty = state_.OnScreen().empty();
    empty_->setVisible(empty);
    if (!empty) return;
    empty_->setText(Say(Texts(), kEmptyHeading, QString::number(state_.Screen())) + QStringLiteral("\n\n") +
                    Say(Texts(), kEmptyHint));
    const QRect display = canvas_->ToWindow(kScreenRect).toRect();
    empty_->setGeometry(display.adjusted(metrics::kGroups, 0, -metrics::kGroups, 0));
}

bool ctlScreens::FocusKey(const QString& key) {
    const int number = WidgetNumberOf(KeyBytes(key));
    if (number == 0) return false;
    const std::vector<int> numbers = state_.Widgets().Numbers();
    const bool there = std::find(numbers.begin(), numbers.end(), number) != numbers.end();
    // An undo may name a number that its own change has closed.
    const bool touched = state_.TakeTouched(KeyBytes(key));
    if (!there && !touched) return false;
    if (!touched) state_.Choose({number});
    canvas_->setFocus(Qt::OtherFocusReason);
    return true;
}

void ctlScreens::TellProblem(const QString& text, const QString& details) const {
    tools_.ask({Tone::Warning, Say(Texts(), kImportFailed), text, details, {Say(Texts(), say::kClose)}});
}

void ctlScreens::Import() {
    FileQuestion question;
    question.title = Say(Texts(), kImportTitle);
    question.start = Shown(settings_.LastFolder);
    question.filters = {Say(Texts(), kImportFilter), Say(Texts(), kImportAll)};
    question.suffix = QStringLiteral("mrn");
    const QString path = tools_.askOpenFile(question);
    if (!path.isEmpty()) OpenImport(path);
}

void ctlScreens::OpenImport(const QString& path) {
    CWidgets from(session_.Context());
    try {
        Dictionary lines = from.LoadDictionary(Utf8(path));
        ReadReport passedOver;
        from.RestoreState(lines, passedOver);
    } catch (const Error& error) {
        return TellProblem(Shown(error.Description()), ErrorNumber(Texts(), error));
    }
    const QString name = QFileInfo(path).fileName();
    if (from.WidgetCount() == 0) return TellProblem(Say(Texts(), kImportNone, name), {});
    auto* dialog = new frmImportScreen(from, name, DisplaysOf(std::as_const(session_).Document().Scales()),
                                       state_.Screen(), Texts(), this);
    connect(dialog, &frmImportScreen::Chosen, this, [this, path](int screen, int to) {
        state_.ShowScreen(to);
        const int count = edits_.ImportScreen(Utf8(path), screen);
        if (count > 0)
            emit session_.Told(Say(Texts(), kImported, QString::number(count), QString::number(to)));
    });
    dialog->open();
}

}  // namespace calyx::ui
