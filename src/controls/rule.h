#pragma once

#include <QWidget>

namespace tambrix {

/// A thin line between groups of rows.
class Rule : public QWidget
{
    Q_OBJECT

public:
    Rule();

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tambrix
