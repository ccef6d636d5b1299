#include "datasets/compare_tree.h"

#include "controls/tones.h"
#include "data/link_text.h"
#include "datasets/compare_text.h"

#include <QApplication>
#include <QFont>

#include <algorithm>

namespace tambrix {

namespace {

constexpr int kOwnEntries = gDataUpperBound + 1;

std::vector<int> range(int first, int count)
{
    std::vector<int> entries(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        entries[static_cast<std::size_t>(i)] = first + i;
    return entries;
}

QString numberText(const std::optional<std::int32_t>& value)
{
    return value ? QString::number(*value) : QString();
}

QColor stateColor(const ComparedEntry& entry)
{
    const Tones& tones = tonesOf(QApplication::palette());
    if (entry.outcome) {
        const WriteState state = entry.outcome->state;
        if (state == WriteState::Verified)
            return tones.good;
        const bool open = state == WriteState::NotWritten || state == WriteState::Written;
        return open ? tones.unusual : tones.alarm;
    }
    if (entry.concern.kind == Concern::Kind::LabelNumber)
        return tones.dim;
    return entry.concern.refused() ? tones.alarm : tones.unusual;
}

QFont boldFont()
{
    QFont font = QApplication::font();
    font.setBold(true);
    return font;
}

} // namespace

void CompareTree::show(Comparison* comparison)
{
    m_comparison = comparison;
    rebuild();
}

void CompareTree::setSides(const QString& left, const QString& right)
{
    m_left = left;
    m_right = right;
    emit headerDataChanged(Qt::Horizontal, Left, Right);
}

void CompareTree::setFilter(const QString& text)
{
    m_filter = text.trimmed();
    rebuild();
}

void CompareTree::setShowEqual(bool show)
{
    m_showEqual = show;
    rebuild();
}

void CompareTree::rebuild()
{
    beginResetModel();
    m_nodes.clear();
    m_nodes.emplace_back();
    if (m_comparison != nullptr) {
        addGroup(setupTitle(), range(kSetupSlot, kCurrentLabelSlot - kSetupSlot));
        addLabels();
        const int all = static_cast<int>(m_comparison->entries().size());
        addGroup(QStringLiteral("Entries of no known register"),
                 range(kOwnEntries, all - kOwnEntries));
        auto apart = range(kShiftCountSlot, kDuctors);
        apart.push_back(kCurrentLabelSlot);
        addGroup(QStringLiteral("Not part of the verdict: shift counts, label number"), apart);
    }
    endResetModel();
}

bool CompareTree::shown(int entry) const
{
    if (!m_showEqual && !m_comparison->notable(entry))
        return false;
    if (m_filter.isEmpty())
        return true;
    const ComparedEntry& compared = m_comparison->entries()[static_cast<std::size_t>(entry)];
    const QString name = entry < kOwnEntries ? fromLink(nameOf(entryAt(entry))) : QString();
    const QString text = name + u' ' + cellText(entry, What).toString() + u' ' +
                         fromLink(compared.address) + u' ' + stateText(compared);
    return text.contains(m_filter, Qt::CaseInsensitive);
}

int CompareTree::addNode(int parent, int entry, const QString& title)
{
    const int id = static_cast<int>(m_nodes.size());
    auto& siblings = m_nodes[static_cast<std::size_t>(parent)].children;
    const int row = static_cast<int>(siblings.size());
    siblings.push_back(id);
    m_nodes.push_back({parent, row, entry, title, {}});
    return id;
}

/// A group without a row to show is left out.
void CompareTree::addGroup(const QString& title, const std::vector<int>& entries)
{
    int group = 0;
    for (const int entry : entries) {
        if (!shown(entry))
            continue;
        if (group == 0)
            group = addNode(0, -1, title);
        addNode(group, entry, {});
    }
}

void CompareTree::addLabels()
{
    int labels = 0;
    for (int label = 0; label < kLabels; ++label) {
        int node = 0;
        for (const int entry : range(labelBase(label), kEntriesPerLabel)) {
            if (!shown(entry))
                continue;
            if (labels == 0)
                labels = addNode(0, -1, labelsTitle());
            if (node == 0)
                node = addNode(labels, -1, QStringLiteral("Label %1").arg(label));
            addNode(node, entry, {});
        }
    }
}

QString CompareTree::setupTitle() const
{
    const int count = m_comparison->differences().setup;
    return QStringLiteral("Set-up: %1 of 5 %2")
        .arg(count)
        .arg(count == 1 ? QStringLiteral("differs") : QStringLiteral("differ"));
}

QString CompareTree::labelsTitle() const
{
    const Differences& found = m_comparison->differences();
    return QStringLiteral("Labels: %1 of 100 %2, %3 %4")
        .arg(found.labels)
        .arg(found.labels == 1 ? QStringLiteral("differs") : QStringLiteral("differ"))
        .arg(found.labelValues)
        .arg(found.labelValues == 1 ? QStringLiteral("value") : QStringLiteral("values"));
}

const CompareTree::Node& CompareTree::nodeOf(const QModelIndex& index) const
{
    return m_nodes[index.isValid() ? index.internalId() : 0];
}

int CompareTree::entryOf(const QModelIndex& index) const
{
    return index.isValid() ? nodeOf(index).entry : -1;
}

QModelIndex CompareTree::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const int id = nodeOf(parent).children[static_cast<std::size_t>(row)];
    return createIndex(row, column, static_cast<quintptr>(id));
}

QModelIndex CompareTree::parent(const QModelIndex& child) const
{
    if (!child.isValid() || nodeOf(child).parent == 0)
        return {};
    const int id = nodeOf(child).parent;
    return createIndex(m_nodes[static_cast<std::size_t>(id)].row, 0, static_cast<quintptr>(id));
}

int CompareTree::rowCount(const QModelIndex& parent) const
{
    if (parent.column() > 0 || m_nodes.empty())
        return 0;
    return static_cast<int>(nodeOf(parent).children.size());
}

Qt::ItemFlags CompareTree::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (index.column() == What && !data(index, Qt::CheckStateRole).isNull())
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

QVariant CompareTree::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole && section >= Left && section <= Running)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return {};
    switch (section) {
    case What:
        return QStringLiteral("What");
    case Register:
        return QStringLiteral("Register");
    case Unit:
        return QStringLiteral("Unit");
    case Left:
        return m_left;
    case Right:
        return m_right;
    case Running:
        return QStringLiteral("Running");
    default:
        return QStringLiteral("State");
    }
}

QVariant CompareTree::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || m_comparison == nullptr)
        return {};
    const Node& node = nodeOf(index);
    return node.entry < 0 ? groupData(node, index.column(), role)
                          : entryData(node.entry, index.column(), role);
}

QVariant CompareTree::groupData(const Node& node, int column, int role) const
{
    if (column != What)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return node.title;
    case Qt::FontRole:
        return node.parent == 0 ? QVariant(boldFont()) : QVariant();
    case Qt::CheckStateRole:
        return tickOf(entriesBelow(node));
    default:
        return {};
    }
}

QVariant CompareTree::entryData(int entry, int column, int role) const
{
    const ComparedEntry& compared = m_comparison->entries()[static_cast<std::size_t>(entry)];
    if (role == Qt::CheckStateRole && column == What)
        return compared.canTick() ? QVariant(compared.ticked ? Qt::Checked : Qt::Unchecked)
                                  : QVariant();
    if (role == Qt::TextAlignmentRole && column >= Left && column <= Running)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::ForegroundRole && column == State)
        return stateColor(compared);
    if (role == Qt::FontRole && (column == Left || column == State))
        return boldFont();
    if (role == Qt::ToolTipRole && column == State)
        return stateText(compared);
    return role == Qt::DisplayRole ? cellText(entry, column) : QVariant();
}

QVariant CompareTree::cellText(int entry, int column) const
{
    const ComparedEntry& compared = m_comparison->entries()[static_cast<std::size_t>(entry)];
    const bool known = entry < kOwnEntries;
    switch (column) {
    case What:
        return known ? nameInGroup(entry) : QStringLiteral("Unknown");
    case Register:
        return fromLink(compared.address);
    case Unit:
        return known ? QLatin1String(entryAt(entry).parameter.unit) : QLatin1String();
    case Left:
        return numberText(compared.left);
    case Right:
        return numberText(compared.right);
    case Running:
        return numberText(compared.running);
    default:
        return stateText(compared);
    }
}

std::vector<int> CompareTree::entriesBelow(const Node& node) const
{
    std::vector<int> entries;
    for (const int id : node.children) {
        const Node& child = m_nodes[static_cast<std::size_t>(id)];
        if (child.entry >= 0)
            entries.push_back(child.entry);
        else
            for (const int below : entriesBelow(child))
                entries.push_back(below);
    }
    return entries;
}

/// Nothing for a group that holds nothing to tick.
QVariant CompareTree::tickOf(const std::vector<int>& entries) const
{
    int possible = 0, set = 0;
    for (const int i : entries) {
        const ComparedEntry& entry = m_comparison->entries()[static_cast<std::size_t>(i)];
        possible += entry.canTick();
        set += entry.ticked;
    }
    if (possible == 0)
        return {};
    if (set == 0)
        return Qt::Unchecked;
    return set == possible ? Qt::Checked : Qt::PartiallyChecked;
}

/// None, then all that is ordinary, then the unusual as well, then none again.
void CompareTree::tickGroup(const std::vector<int>& entries)
{
    std::vector<int> ordinary, all;
    bool ordinaryTicked = true, allTicked = true;
    for (const int i : entries) {
        const ComparedEntry& entry = m_comparison->entries()[static_cast<std::size_t>(i)];
        if (!entry.canTick())
            continue;
        all.push_back(i);
        allTicked = allTicked && entry.ticked;
        if (entry.concern.unusual())
            continue;
        ordinary.push_back(i);
        ordinaryTicked = ordinaryTicked && entry.ticked;
    }
    if (allTicked)
        m_comparison->tick(all, false);
    else
        m_comparison->tick(ordinaryTicked ? all : ordinary, true);
}

bool CompareTree::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || !index.isValid() || index.column() != What)
        return false;
    const Node& node = nodeOf(index);
    if (node.entry < 0)
        tickGroup(entriesBelow(node));
    else
        m_comparison->tick({node.entry}, value.toInt() == Qt::Checked);
    refresh();
    emit ticksChanged();
    return true;
}

void CompareTree::refresh()
{
    tellChanged({});
}

void CompareTree::tellChanged(const QModelIndex& parent)
{
    const int rows = rowCount(parent);
    if (rows == 0)
        return;
    emit dataChanged(index(0, 0, parent), index(rows - 1, Columns - 1, parent));
    for (int row = 0; row < rows; ++row)
        tellChanged(index(row, 0, parent));
}

int CompareTree::ticked() const
{
    if (m_comparison == nullptr)
        return 0;
    const auto& entries = m_comparison->entries();
    return static_cast<int>(std::count_if(entries.begin(), entries.end(),
                                          [](const ComparedEntry& entry) { return entry.ticked; }));
}

int CompareTree::tickedHidden() const
{
    int visible = 0;
    for (const Node& node : m_nodes) {
        if (node.entry >= 0)
            visible += m_comparison->entries()[static_cast<std::size_t>(node.entry)].ticked;
    }
    return ticked() - visible;
}

} // namespace tambrix
