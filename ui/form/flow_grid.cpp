#include "ui/form/flow_grid.h"

#include <QWidget>
#include <algorithm>
#include <limits>
#include <numeric>

#include "ui/theme/metrics.h"

namespace calyx::ui::form {

namespace {

constexpr int kMostColumns = 3;
constexpr int kColumnGap = metrics::kRelated;  // besides the room for marks that a group begins with
constexpr int kGroupGap = metrics::kPageEdge;

// Shares out the groups from `first` on; the weight of the heaviest column.
double Share(const std::vector<double>& weights, std::size_t first, std::size_t columns,
             std::vector<std::size_t>& begins) {
    if (columns == 1)
        return std::accumulate(weights.begin() + static_cast<std::ptrdiff_t>(first), weights.end(), 0.0);
    double best = std::numeric_limits<double>::max(), own = 0;
    std::vector<std::size_t> found;
    for (std::size_t next = first + 1; next + columns - 1 <= weights.size(); ++next) {
        own += weights[next - 1];
        if (own >= best) break;
        std::vector<std::size_t> rest{next};
        const double heaviest = std::max(own, Share(weights, next, columns - 1, rest));
        if (heaviest < best) {
            best = heaviest;
            found = rest;
        }
    }
    begins.insert(begins.end(), found.begin(), found.end());
    return best;
}

}  // namespace

std::vector<std::size_t> ShareOut(const std::vector<double>& weights, std::size_t columns) {
    std::vector<std::size_t> begins;
    columns = std::min(columns, weights.size());
    if (columns > 1) Share(weights, 0, columns, begins);
    return begins;
}

FlowGrid::FlowGrid(QWidget* parent, int widest) : QLayout(parent), widest_(widest) {}

FlowGrid::~FlowGrid() {
    for (const Place& place : places_) delete place.item;
}

void FlowGrid::AddGroup(QWidget* group, double weight) {
    addWidget(group);
    places_.back().weight = weight;
}

void FlowGrid::addItem(QLayoutItem* item) {
    places_.push_back({item, 1});
}

QLayoutItem* FlowGrid::itemAt(int index) const {
    return index >= 0 && index < count() ? places_[static_cast<std::size_t>(index)].item : nullptr;
}

QLayoutItem* FlowGrid::takeAt(int index) {
    QLayoutItem* item = itemAt(index);
    if (item != nullptr) places_.erase(places_.begin() + index);
    return item;
}

int FlowGrid::NarrowestColumn() const {
    int width = 0;
    for (const Place& place : places_) width = std::max(width, place.item->minimumSize().width());
    return width;
}

int FlowGrid::ColumnCount(int width) const {
    const int column = std::max(1, NarrowestColumn());
    return std::clamp((width + kColumnGap) / (column + kColumnGap), 1, kMostColumns);
}

std::vector<std::size_t> FlowGrid::Seen() const {
    std::vector<std::size_t> seen;
    for (std::size_t i = 0; i < places_.size(); ++i) {
        if (!places_[i].item->isEmpty()) seen.push_back(i);
    }
    return seen;
}

std::vector<std::size_t> FlowGrid::Shares(const std::vector<std::size_t>& seen, std::size_t columns) const {
    std::vector<double> weights;
    for (const std::size_t i : seen) weights.push_back(places_[i].weight);
    std::vector<std::size_t> begins = ShareOut(weights, columns);
    for (std::size_t& begin : begins) begin = seen[begin];
    return begins;
}

int FlowGrid::Arrange(const QRect& rect, bool apply) const {
    const QMargins edges = contentsMargins();
    const QRect inner = rect.marginsRemoved(edges);
    const std::vector<std::size_t> seen = Seen();
    const int columns = std::min(ColumnCount(inner.width()), std::max(1, static_cast<int>(seen.size())));
    const int width = std::min(widest_, (inner.width() - (columns - 1) * kColumnGap) / columns);
    const std::vector<std::size_t> begins = Shares(seen, static_cast<std::size_t>(columns));
    int x = inner.left(), y = inner.top(), lowest = y;
    for (const std::size_t i : seen) {
        if (std::find(begins.begin(), begins.end(), i) != begins.end()) {
            x += width + kColumnGap;
            y = inner.top();
        }
        QLayoutItem* item = places_[i].item;
        const int height =
            item->hasHeightForWidth() ? item->heightForWidth(width) : item->sizeHint().height();
        if (apply) item->setGeometry(QRect(x, y, width, height));
        lowest = std::max(lowest, y + height);
        y += height + kGroupGap;
    }
    return lowest + edges.bottom() - rect.top();
}

int FlowGrid::heightForWidth(int width) const {
    return Arrange(QRect(0, 0, width, 0), false);
}

QSize FlowGrid::minimumSize() const {
    const QMargins edges = contentsMargins();
    return {NarrowestColumn() + edges.left() + edges.right(), edges.top() + edges.bottom()};
}

QSize FlowGrid::sizeHint() const {
    const int width = minimumSize().width();
    return {width, heightForWidth(width)};
}

void FlowGrid::invalidate() {
    for (const Place& place : places_) place.item->invalidate();
    QLayout::invalidate();
}

void FlowGrid::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    Arrange(rect, true);
}

}  // namespace calyx::ui::form
