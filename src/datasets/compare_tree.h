#pragma once

#include "data/comparison.h"

#include <QAbstractItemModel>

#include <vector>

namespace tambrix {

/// A comparison as a tree: group, label, ductor. Rows and groups have a tick; only differences are
/// shown until asked otherwise. A group's tick takes its ordinary rows first, and the unusual ones
/// with the next click.
class CompareTree : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column { What, Register, Unit, Left, Right, Running, State, Columns };

    explicit CompareTree(QObject* parent = nullptr) : QAbstractItemModel(parent) {}

    /// Shows `comparison`, which must outlive the tree or be replaced; none: nothing.
    void show(Comparison* comparison);
    /// What the columns of the two sides are called.
    void setSides(const QString& left, const QString& right);
    /// Shows rows that contain `text` somewhere in their label, name, address or state.
    void setFilter(const QString& text);
    void setShowEqual(bool show);
    /// Values of the comparison have changed; its rows are the same.
    void refresh();

    /// Ticked entries, and how many of them are in rows that the filter hides.
    int ticked() const;
    int tickedHidden() const;

    /// The entry of a row; -1 for a group or a label.
    int entryOf(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& = {}) const override { return Columns; }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

signals:
    /// Ticks have changed, and with them perhaps what speaks against other values.
    void ticksChanged();

private:
    /// A row of the tree. Children stand in one list, in their order.
    struct Node
    {
        int parent = 0;
        int row = 0;
        int entry = -1; ///< of the comparison
        QString title;  ///< of a group or a label
        std::vector<int> children;
    };

    void rebuild();
    bool shown(int entry) const;
    int addNode(int parent, int entry, const QString& title);
    void addGroup(const QString& title, const std::vector<int>& entries);
    void addLabels();
    QString setupTitle() const;
    QString labelsTitle() const;

    const Node& nodeOf(const QModelIndex& index) const;
    std::vector<int> entriesBelow(const Node& node) const;
    QVariant groupData(const Node& node, int column, int role) const;
    QVariant entryData(int entry, int column, int role) const;
    QVariant cellText(int entry, int column) const;
    QVariant tickOf(const std::vector<int>& entries) const;
    void tickGroup(const std::vector<int>& entries);
    void tellChanged(const QModelIndex& parent);

    Comparison* m_comparison = nullptr;
    QString m_left = QStringLiteral("Left");
    QString m_right = QStringLiteral("Right");
    QString m_filter;
    bool m_showEqual = false;
    std::vector<Node> m_nodes; ///< the first is the root
};

} // namespace tambrix
