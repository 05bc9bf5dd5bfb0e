#include "ui/form/form_page.h"

#include <QLayout>
#include <algorithm>
#include <utility>

#include "model/language/text.h"
#include "ui/form/field_group.h"
#include "ui/form/flash.h"
#include "ui/form/flow_grid.h"
#include "ui/form/form_texts.h"
#include "ui/form/mnemonics.h"
#include "ui/form/parameter.h"
#include "ui/theme/metrics.h"

namespace calyx::ui {

using namespace form;

namespace {
constexpr int kWidestColumn = 600;
}

FormPage::FormPage(DocumentSession& session, ItemRef item, QWidget* parent, const QString& reservedLetters,
                   const std::vector<std::string>& leftOut, const ControlMaker& make)
    : QScrollArea(parent), session_(session), item_(std::move(item)) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    Build(reservedLetters, leftOut, make);
    Refresh();
    connect(&session_, &DocumentSession::Changed, this, [this] { Follow(Stale::Changed); });
    connect(&session_, &DocumentSession::Settled, this, [this] { Follow(Stale::Changed); });
    connect(&session_, &DocumentSession::Saved, this, [this] { Follow(Stale::Changed); });
    connect(&session_, &DocumentSession::Replaced, this, [this] { Follow(Stale::Replaced); });
}

// The fields go before their widgets, which tell of their own end.
FormPage::~FormPage() = default;

void FormPage::Build(const QString& reservedLetters, const std::vector<std::string>& leftOut,
                     const ControlMaker& make) {
    auto* content = new QWidget;
    auto* grid = new FlowGrid(content, kWidestColumn);
    // The marks stand in the edge.
    const int left = metrics::kPageEdge - metrics::kIconSmall - metrics::kHalf;
    grid->setContentsMargins(left, metrics::kPageEdge, metrics::kPageEdge, metrics::kPageEdge);
    std::vector<std::pair<int, std::vector<Field*>>> groups;  // in the order in which the rows name them
    for (const std::string& key : FormKeys(session_.Document(), item_)) {
        const auto parameter = FindParameter(session_.Document(), item_.section, key);
        if (std::find(leftOut.begin(), leftOut.end(), parameter->Info().stem) != leftOut.end()) continue;
        auto& field =
            fields_.emplace_back(std::make_unique<Field>(session_, item_.section, key, content, make));
        connect(field.get(), &Field::Focused, this, &FormPage::KeyFocused);
        connect(field.get(), &Field::ShowInLines, this, &FormPage::ShowInLines);
        const auto group = std::find_if(groups.begin(), groups.end(),
                                        [&](const auto& g) { return g.first == field->Group(); });
        if (group == groups.end()) {
            groups.push_back({field->Group(), {field.get()}});
        } else {
            group->second.push_back(field.get());
        }
    }
    QStringList captions;
    std::vector<Field*> inOrder;
    for (const auto& [number, fields] : groups) {
        for (Field* field : fields) {
            captions += field->PlainCaption();
            inOrder.push_back(field);
        }
    }
    const QStringList marked = WithMnemonics(captions, reservedLetters);
    for (std::size_t i = 0; i < inOrder.size(); ++i) {
        inOrder[i]->SetCaption(marked[static_cast<qsizetype>(i)]);
        if (i > 0) setTabOrder(inOrder[i - 1]->ControlWidget(), inOrder[i]->ControlWidget());
    }
    for (const auto& [number, fields] : groups) {
        auto* group = new FieldGroup(Say(session_.Context().texts, number), fields, content);
        grid->AddGroup(group, group->Weight());
        groups_.emplace_back(group, fields);
    }
    setWidget(content);
    setFocusPolicy(Qt::NoFocus);
    if (!inOrder.empty()) setFocusProxy(inOrder.front()->ControlWidget());
}

void FormPage::Follow(Stale what) {
    stale_ = std::max(stale_, what);
    if (isVisible()) Refresh();
}

void FormPage::Refresh() {
    const bool anew = std::exchange(stale_, Stale::No) == Stale::Replaced;
    const PageState state = PageState::Of(session_, item_.section, differing_);
    for (const auto& field : fields_) field->Refresh(state, anew);
    // No heading without a field.
    for (const auto& [group, fields] : groups_) {
        group->setVisible(std::any_of(fields.begin(), fields.end(), [](Field* f) { return f->IsPresent(); }));
    }
    AlignLabels();
}

// As wide as the labels that are there need; those of another kind of item may be longer.
void FormPage::AlignLabels() {
    int labels = 0;
    for (const auto& [group, fields] : groups_) {
        if (!group->IsCheckList()) labels = std::max(labels, group->WidestLabel());
    }
    if (std::exchange(labelWidth_, labels) == labels) return;
    for (const auto& [group, fields] : groups_) group->SetLabelWidth(labels);
}

void FormPage::showEvent(QShowEvent* event) {
    QScrollArea::showEvent(event);
    if (stale_ != Stale::No) Refresh();
}

bool FormPage::FocusKey(const QString& key) {
    if (stale_ != Stale::No) Refresh();
    const std::string bytes = key.toStdString();
    const auto found =
        std::find_if(fields_.begin(), fields_.end(), [&](const auto& f) { return f->Covers(bytes); });
    if (found == fields_.end() || !(*found)->IsPresent()) return false;
    QWidget* control = (*found)->ControlWidget();
    control->setFocus(Qt::OtherFocusReason);
    // The field that was left may have taken a message with it.
    widget()->layout()->invalidate();
    widget()->layout()->activate();
    ensureWidgetVisible(control, metrics::kPageEdge, 3 * metrics::kPageEdge);
    new Flash((*found)->Label(), control, widget());
    return true;
}

void FormPage::SetDiffering(const std::set<std::string>& keys) {
    differing_.clear();
    for (const std::string& key : keys) differing_.insert(Upper(key));
    Follow(Stale::Changed);
}

bool HasForm(const CIndicator& document, const ItemRef& item) {
    return !FormKeys(document, item).empty();
}

FormPage* MakePage(DocumentSession& session, const ItemRef& item, QWidget* parent) {
    if (!HasForm(session.Document(), item)) return nullptr;
    return new FormPage(session, item, parent);
}

}  // namespace calyx::ui
