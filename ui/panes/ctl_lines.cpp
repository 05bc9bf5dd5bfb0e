#include "ui/panes/ctl_lines.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <algorithm>

#include "ui/panes/line_delegate.h"
#include "ui/panes/lines_model.h"
#include "ui/text.h"
#include "ui/texts.h"
#include "ui/theme/metrics.h"
#include "ui/theme/theme.h"

namespace calyx::ui {

ctlLines::ctlLines(DocumentSession& session, QWidget* parent)
    : QWidget(parent),
      session_(session),
      target_(new QComboBox),
      cb2_(new QCheckBox),
      list_(new QListView),
      summary_(new QLabel),
      empty_(new QLabel),
      model_(new LinesModel(session.Context().texts, this)) {
    const ResourceTexts& texts = session.Context().texts;
    setObjectName(QStringLiteral("ctlLines"));
    target_->setObjectName(QStringLiteral("linesTarget"));
    target_->setAccessibleName(Say(texts, say::kLinesTarget));
    target_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    target_->setMinimumContentsLength(14);
    cb2_->setText(Say(texts, say::kCb2));
    cb2_->setToolTip(Say(texts, say::kCb2Tip));
    cb2_->setObjectName(QStringLiteral("linesCb2"));
    list_->setObjectName(QStringLiteral("linesList"));
    list_->setAccessibleName(Say(texts, say::kLinesListName));
    list_->setModel(model_);
    list_->setItemDelegate(new LineDelegate(list_));
    list_->setFrameShape(QFrame::NoFrame);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setResizeMode(QListView::Adjust);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    summary_->setForegroundRole(role::kQuietText);
    summary_->setFont(TextFont(TextSize::Small));
    empty_->setText(Say(texts, say::kLinesEmpty));
    empty_->setForegroundRole(role::kQuietText);
    empty_->setMargin(metrics::kGroups);
    empty_->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    auto* copy = new QAction(Say(texts, say::kCopyLines), list_);
    connect(copy, &QAction::triggered, this, [this] {
        const QString text = SentText();
        QGuiApplication::clipboard()->setText(text);
        emit Told(Say(session_.Context().texts, say::kLinesCopied, QString::number(text.count(u'\n'))));
    });
    list_->addAction(copy);
    list_->setContextMenuPolicy(Qt::ActionsContextMenu);

    auto* title = new QLabel(Say(texts, say::kLinesTitle));
    title->setFont(StrongFont());
    auto* head = new QHBoxLayout;
    head->setContentsMargins(metrics::kRelated, metrics::kRelated, metrics::kRelated, metrics::kRelated);
    head->setSpacing(metrics::kRelated);
    head->addWidget(title);
    head->addStretch();
    head->addWidget(target_);
    head->addWidget(cb2_);
    auto* foot = new QHBoxLayout;
    foot->setContentsMargins(metrics::kRelated, metrics::kHalf, metrics::kRelated, metrics::kHalf);
    foot->addWidget(summary_);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addLayout(head);
    all->addWidget(list_, 1);
    all->addWidget(empty_, 1);
    all->addLayout(foot);

    FillVersions();
    refresh_.setSingleShot(true);
    refresh_.setInterval(0);  // once for all that one turn of the message loop brings
    connect(&refresh_, &QTimer::timeout, this, &ctlLines::Refresh);
    const auto soon = [this] { refresh_.start(); };
    connect(&session_, &DocumentSession::Changed, this, soon);
    connect(&session_, &DocumentSession::Replaced, this, soon);
    connect(&session_, &DocumentSession::Saved, this, soon);
    connect(target_, &QComboBox::currentIndexChanged, this, &ctlLines::ShowTarget);
    connect(cb2_, &QCheckBox::toggled, this, &ctlLines::ShowTarget);
    const auto choose = [this](const QModelIndex& index) {
        emit Chosen(index.data(LinesModel::kKeyRole).toString());
    };
    connect(list_, &QListView::clicked, this, choose);
    connect(list_, &QListView::activated, this, choose);
    cb2_->hide();
}

void ctlLines::SetPlace(const Place& place) {
    place_ = &place;
    item_.reset();
    Refresh();
    list_->scrollToTop();
}

void ctlLines::SetItem(const std::optional<ItemRef>& item) {
    if (item == item_) return;
    item_ = item;
    Refresh();
    list_->scrollToTop();
}

void ctlLines::SelectKey(const QString& key) {
    if (refresh_.isActive()) Refresh();
    const int row = model_->Find(key);
    if (row < 0) return list_->clearSelection();
    list_->setCurrentIndex(model_->index(row));
}

std::optional<std::string> ctlLines::Version() const {
    const QVariant version = target_->currentData();
    return version.isNull() ? std::nullopt : std::optional(Utf8(version.toString()));
}

void ctlLines::SetVersion(const std::optional<std::string>& prefix) {
    const int place = prefix ? target_->findData(Shown(*prefix)) : 0;
    if (place >= 0) target_->setCurrentIndex(place);
}

bool ctlLines::Cb2() const {
    return cb2_->isChecked();
}

void ctlLines::SetCb2(bool on) {
    cb2_->setChecked(on);
}

void ctlLines::SetConnected(const std::optional<std::string>& prefix) {
    if (connected_ == prefix) return;
    connected_ = prefix;
    FillVersions();
    ShowTarget();
}

// Newest first, since that is what most indicators have.
void ctlLines::FillVersions() {
    const ResourceTexts& texts = session_.Context().texts;
    const auto chosen = Version();
    const QSignalBlocker quiet(target_);
    target_->clear();
    target_->addItem(Say(texts, say::kAsFile));
    const auto add = [&](const std::string& prefix) {
        const QString name = Shown(prefix.substr(0, prefix.size() - 1));
        const int words = connected_ == prefix ? say::kAsSentConnected : say::kAsSent;
        target_->addItem(Say(texts, words, name), Shown(prefix));
    };
    if (connected_ && VersionBit(*connected_) == kUnknownVersion) add(*connected_);
    for (auto version = kVersions.rbegin(); version != kVersions.rend(); ++version)
        add(std::string(*version));
    SetVersion(chosen);
}

void ctlLines::ShowTarget() {
    cb2_->setVisible(Version().has_value());
    Refresh();
    emit TargetChanged();
}

Target ctlLines::ViewTarget() const {
    const auto version = Version();
    if (!version) return Target::Everything();
    return TargetVersion{*version, Cb2()}.Gated();
}

void ctlLines::Refresh() {
    refresh_.stop();
    if (place_ == nullptr) return;
    const QString current = list_->currentIndex().data(LinesModel::kKeyRole).toString();
    model_->SetLines(LinesOfPlace(session_.Document(), *place_, item_, ViewTarget(), session_.SavedLines()));
    if (const int row = model_->Find(current); row >= 0 && !list_->currentIndex().isValid()) {
        list_->setCurrentIndex(model_->index(row));
    }
    const bool some = model_->rowCount() > 0;
    list_->setVisible(some);
    empty_->setVisible(!some);
    summary_->setText(some ? Summary() : QString());
}

QString ctlLines::Summary() const {
    const auto& lines = model_->Lines();
    const auto count = [&lines](auto&& test) {
        return QString::number(std::count_if(lines.begin(), lines.end(), test));
    };
    const QString changed = count([](const ShownLine& line) { return line.changed; });
    const ResourceTexts& texts = session_.Context().texts;
    if (!Version()) {
        const QString all = QString::number(lines.size());
        if (lines.size() == 1 && changed == QStringLiteral("0")) return Say(texts, say::kLinesCountOne);
        return changed == QStringLiteral("0") ? Say(texts, say::kLinesCount, all)
                                              : Say(texts, say::kLinesSummary, all, changed);
    }
    return Say(texts, say::kLinesSummarySent, count([](const ShownLine& line) { return line.sent; }),
               count([](const ShownLine& line) { return !line.sent; }), changed);
}

QString ctlLines::SentText() const {
    QString text;
    for (const ShownLine& line : model_->Lines()) {
        if (line.sent) text += Shown(line.key + "=" + line.value) + QLatin1Char('\n');
    }
    return text;
}

}  // namespace calyx::ui
