#include "ui/boxes/ctl_box.h"

#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "model/language/text.h"
#include "ui/boxes/box_rows.h"
#include "ui/boxes/boxes_texts.h"
#include "ui/boxes/ctl_box_picture.h"
#include "ui/text.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

using namespace boxes_text;

namespace {
enum Tab { kSystemTab, kCellsTab, kPlatformsTab, kBoxTab };
}

ctlBox::ctlBox(DocumentSession& session, const ItemRef& item)
    : session_(session),
      item_(item),
      picture_(new ctlBoxPicture(session, item.number)),
      configuration_(new QLabel) {
    setObjectName(QStringLiteral("ctlBox"));
    setDocumentMode(true);
    const ResourceTexts& texts = session.Context().texts;
    cells_ = MakeGrid(CellHeadings(session), CellRows(item.number), kTabs[kCellsTab], "cellGrid");
    platforms_ =
        MakeGrid(PlatformHeadings(session), PlatformRows(item.number), kTabs[kPlatformsTab], "platformGrid");
    const int wide = fontMetrics().averageCharWidth();
    constexpr int kCellWidths[] = {18, 13, 9, 7, 7, 7}, kPlatformWidth = 11;  // in characters
    for (std::size_t i = 0; i < std::size(kCellWidths); ++i)
        cells_->Grid().setColumnWidth(static_cast<int>(i) + 1, kCellWidths[i] * wide + metrics::kIconMedium);
    for (int platform = 1; platform <= CJunctionBox::MaxPlatforms(); ++platform)
        platforms_->Grid().setColumnWidth(platform, kPlatformWidth * wide + metrics::kIconMedium);
    // The name of a cell takes the room that is left, and the platforms share theirs.
    cells_->Grid().horizontalHeader()->setStretchLastSection(false);
    cells_->Grid().horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    platforms_->Grid().horizontalHeader()->setStretchLastSection(false);
    for (int platform = 1; platform <= CJunctionBox::MaxPlatforms(); ++platform)
        platforms_->Grid().horizontalHeader()->setSectionResizeMode(platform, QHeaderView::Stretch);
    form_ = MakeForm();
    addTab(MakeSystem(), Say(texts, kTabs[kSystemTab]));
    addTab(cells_, Say(texts, kTabs[kCellsTab]));
    addTab(platforms_, Say(texts, kTabs[kPlatformsTab]));
    addTab(form_, Say(texts, kTabs[kBoxTab]));
    connect(&session_, &DocumentSession::Changed, this, &ctlBox::Follow);
    connect(&session_, &DocumentSession::Replaced, this, &ctlBox::Follow);
    Refresh();
}

QWidget* ctlBox::MakeSystem() {
    const ResourceTexts& texts = session_.Context().texts;
    configuration_->setForegroundRole(role::kQuietText);
    auto* change = new QPushButton(Say(texts, kChange));
    change->setObjectName(QStringLiteral("cmdConfiguration"));
    change->setToolTip(Say(texts, kChangeTip));
    connect(change, &QPushButton::clicked, this,
            [this] { FocusKey(QStringLiteral("SJ.CONFIG#%1").arg(item_.number)); });
    auto* top = new QHBoxLayout;
    top->setSpacing(metrics::kGroups);
    top->addWidget(configuration_);
    top->addWidget(change);
    top->addStretch(1);
    auto* room = new QWidget;
    auto* around = new QVBoxLayout(room);
    around->setContentsMargins(metrics::kHalf, metrics::kHalf, metrics::kHalf, metrics::kHalf);
    around->addWidget(picture_);
    around->addStretch(1);
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(room);
    connect(picture_, &ctlBoxPicture::FocusMoved, area, [this, area] {
        const auto& parts = picture_->Plan().parts;
        const QRectF part = parts[static_cast<std::size_t>(picture_->Marks().focus)].rect;
        const QPoint middle = picture_->mapTo(area->widget(), part.center().toPoint());
        area->ensureVisible(middle.x(), middle.y(), static_cast<int>(part.width()),
                            static_cast<int>(part.height()));
    });
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(metrics::kPageEdge, metrics::kRelated, metrics::kPageEdge, metrics::kRelated);
    column->setSpacing(metrics::kRelated);
    column->addLayout(top);
    column->addWidget(area, 1);
    column->addWidget(MakeBar());
    page->setFocusProxy(picture_);
    return page;
}

QWidget* ctlBox::MakeBar() {
    const ResourceTexts& texts = session_.Context().texts;
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(metrics::kRelated);
    const auto add = [&](int text, int tip, const char* name) {
        auto* button = new QPushButton(Say(texts, text));
        button->setObjectName(QLatin1String(name));
        button->setToolTip(Say(texts, tip));
        button->setAutoDefault(false);
        row->addWidget(button);
        return button;
    };
    QPushButton* assign = add(kAssign, kAssignTip, "cmdAssign");
    auto* menu = new QMenu(assign);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        menu->clear();
        for (int platform = 1; platform <= CJunctionBox::MaxPlatforms(); ++platform) {
            const QString name = PlatformName(picture_->Edits().Box(), session_.Context().texts, platform);
            menu->addAction(name, this, [this, platform] { picture_->AssignTo(platform); });
        }
    });
    assign->setMenu(menu);
    connect(add(kUnassign, kUnassignTip, "cmdUnassign"), &QPushButton::clicked, picture_,
            &ctlBoxPicture::Unassign);
    connect(add(kInSystem, kInSystemTip, "cmdInSystem"), &QPushButton::clicked, picture_,
            &ctlBoxPicture::TurnInSystem);
    row->addStretch(1);
    auto* hint = new QLabel(Say(texts, kKeys));
    hint->setForegroundRole(role::kQuietText);
    hint->setFont(TextFont(TextSize::Small));
    row->addWidget(hint);
    return bar;
}

ctlGridPage* ctlBox::MakeGrid(const QStringList& headings, GridSource source, int name, const char* object) {
    auto* page = new ctlGridPage(session_, headings, std::move(source), Say(session_.Context().texts, name));
    ctlGrid* grid = &page->Grid();
    grid->setObjectName(QLatin1String(object));
    connect(grid, &ctlGrid::KeyFocused, this, &ctlBox::KeyFocused);
    connect(grid, &ctlGrid::ShowInLines, this, &ctlBox::ShowInLines);
    connect(grid, &ctlGrid::ParameterWanted, this, &ctlBox::FocusKey);
    return page;
}

// The box itself, the system's name, points, analog output and diagnostics.
FormPage* ctlBox::MakeForm() {
    const Item& item = std::as_const(session_).Document().JunctionBoxes().Box(item_.number).Parameters();
    std::vector<std::string> elsewhere;
    for (std::size_t row = 0; row < item.RowCount(); ++row) {
        const std::string stem(item.Info(row).stem);
        if (StartsNoCase(stem, "LC.") || StartsNoCase(stem, "PLAT.") || StartsNoCase(stem, "SYS.PLATS"))
            elsewhere.push_back(stem);
    }
    auto* form = new FormPage(session_, item_, nullptr, FormPage::kMenuLetters, elsewhere);
    connect(form, &FormPage::KeyFocused, this, &ctlBox::KeyFocused);
    connect(form, &FormPage::ShowInLines, this, &ctlBox::ShowInLines);
    return form;
}

void ctlBox::Follow() {
    stale_ = true;
    if (isVisible()) Refresh();
}

void ctlBox::showEvent(QShowEvent* event) {
    QTabWidget::showEvent(event);
    if (stale_) Refresh();
}

void ctlBox::Refresh() {
    stale_ = false;
    // The box may have gone; its page goes next.
    if (!std::as_const(session_).Document().JunctionBoxes().Exists(item_.number)) return;
    picture_->Refresh();
    const CJunctionBox& box = picture_->Edits().Box();
    configuration_->setText(Say(session_.Context().texts, kConfiguration,
                                Shown(box.Values().hardwareConfig.Trimmed()),
                                QString::number(box.AllowedLoadCells().size())));
}

bool ctlBox::FocusKey(const QString& key) {
    const std::string bytes = KeyBytes(key);
    const auto number = ReadInteger(KeyBytes(key.section(QLatin1Char('.'), -1)));
    if (StartsNoCase(bytes, "SJ.PLAT.CELLS.") || StartsNoCase(bytes, "SJ.SYS.PLATS")) {
        setCurrentIndex(kSystemTab);
        const bool platform = StartsNoCase(bytes, "SJ.PLAT.");
        picture_->GoTo(platform ? BoxPlan::Kind::Platform : BoxPlan::Kind::System,
                       platform && number ? number->value : 1);
        emit KeyFocused(key);
        return true;
    }
    ctlGridPage* page = StartsNoCase(bytes, "SJ.LC.")     ? cells_
                        : StartsNoCase(bytes, "SJ.PLAT.") ? platforms_
                                                          : nullptr;
    if (page == nullptr) {
        setCurrentWidget(form_);
        return form_->FocusKey(key);
    }
    setCurrentWidget(page);
    return page->Grid().FocusKey(key);
}

void ctlBox::SetDiffering(const std::set<std::string>& keys) {
    cells_->Grid().SetDiffering(keys);
    platforms_->Grid().SetDiffering(keys);
    form_->SetDiffering(keys);
}

}  // namespace calyx::ui
