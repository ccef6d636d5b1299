#include "controls/plain_texts.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QToolTip>

#include <gtest/gtest.h>

using namespace tambrix;

TEST(PlainTextsTest, MarkupIsTextInLabelsBoxesAndToolTips)
{
    const PlainTexts plain;
    const QString markup = "<b>x</b><img src=\"/dev/zero\">";
    const QLabel label(markup);
    const QMessageBox box(QMessageBox::Information, "Box", markup);
    QLabel rich("<i>x</i>");
    rich.setTextFormat(Qt::RichText);
    QToolTip::showText({10, 10}, markup);
    int plainOnes = 0;
    for (QWidget* widget : QApplication::allWidgets()) {
        const auto* shown = qobject_cast<QLabel*>(widget);
        widget->ensurePolished();
        plainOnes += shown && shown->text() == markup && shown->textFormat() == Qt::PlainText;
    }
    EXPECT_EQ(plainOnes, 3);
    EXPECT_EQ(rich.textFormat(), Qt::RichText) << "one that was told keeps its format";
    QToolTip::hideText();
}
