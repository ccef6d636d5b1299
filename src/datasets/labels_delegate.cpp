#include "datasets/labels_delegate.h"

#include "controls/tones.h"
#include "datasets/labels_model.h"

#include <QLineEdit>
#include <QPainter>

#include <algorithm>

namespace tambrix {

namespace {

constexpr int kGap = 3; // round a bar
constexpr int kCorner = 3;
constexpr int kTextMargin = 6;
constexpr float kBarStrength = 0.45F; // the number on it stays readable

QColor softened(QColor color)
{
    color.setAlphaF(kBarStrength);
    return color;
}

void paintGround(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                 const Tones& tones)
{
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    if (selected || index.data(LabelsModel::CurrentRole).toBool())
        painter.fillRect(option.rect, tones.tint);
    if (!selected)
        return;
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    painter.setPen(QPen(tones.accent, focused ? 2 : 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(1, 1, -1, -1));
}

/// The filled part ends square, so that 1 % is as true as 99 %.
void paintBar(QPainter& painter, const QRect& track, double share, bool problem, const Tones& tones)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(problem ? tones.alarmGround : tones.track);
    painter.drawRoundedRect(track, kCorner, kCorner);
    QRect filled = track;
    filled.setWidth(static_cast<int>(track.width() * std::clamp(share, 0.0, 1.0)));
    painter.fillRect(filled, problem ? tones.track : softened(tones.bar));
    if (!problem)
        return;
    painter.setPen(QPen(tones.alarm, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(track, kCorner, kCorner);
}

} // namespace

void LabelsDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const
{
    const Tones& tones = tonesOf(option.palette);
    painter->save();
    paintGround(*painter, option, index, tones);
    QRect place = option.rect.adjusted(kTextMargin, 0, -kTextMargin, 0);
    QString text = index.data().toString();
    QColor ink = option.palette.color(QPalette::WindowText);
    if (index.column() >= LabelsModel::FirstDuctor) {
        const double share = index.data(LabelsModel::ShareRole).toDouble();
        const bool problem = index.data(LabelsModel::ProblemRole).toBool();
        paintBar(*painter, option.rect.adjusted(kGap + 1, kGap, -kGap - 1, -kGap), share, problem,
                 tones);
        place.adjust(kGap, 0, -kGap, 0);
        if (problem)
            text.prepend(QStringLiteral("! "));
        ink = problem ? tones.alarm : share == 0 ? tones.dim : ink;
    } else {
        QFont font = option.font;
        font.setBold(index.data(LabelsModel::CurrentRole).toBool());
        painter->setFont(font);
        text = QFontMetrics(font).elidedText(text, Qt::ElideRight, place.width());
    }
    painter->setPen(ink);
    painter->drawText(place, index.data(Qt::TextAlignmentRole).toInt() | Qt::TextSingleLine, text);
    painter->restore();
}

QSize LabelsDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    const QSize widest = option.fontMetrics.size(0, QStringLiteral("! 000.0"));
    return widest + QSize(2 * (kTextMargin + kGap), 2 * (kGap + 2) + kGap);
}

QWidget* LabelsDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const
{
    auto* field = new QLineEdit(parent);
    field->setFrame(false);
    field->setFont(option.font);
    field->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
    field->setAccessibleName(index.data(Qt::AccessibleTextRole).toString());
    if (index.column() == LabelsModel::Name)
        field->setMaxLength(LabelNames::kLongest);
    return field;
}

/// What was not changed is not checked: a value that breaks the rules may stay as it is.
void LabelsDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                  const QModelIndex& index) const
{
    const QString typed = qobject_cast<QLineEdit*>(editor)->text();
    if (typed != index.data(Qt::EditRole).toString())
        model->setData(index, typed, Qt::EditRole);
}

} // namespace tambrix
