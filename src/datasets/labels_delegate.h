#pragma once

#include <QStyledItemDelegate>

namespace tambrix {

/// Paints the cells of the labels' table: a value on its bar, the current label on a ground of its
/// own, a value with a problem in a frame and with a mark.
class LabelsDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit LabelsDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
};

} // namespace tambrix
