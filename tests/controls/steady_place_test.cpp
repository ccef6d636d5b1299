#include "controls/steady_place.h"

#include "controls/value_label.h"

#include <QApplication>
#include <QHBoxLayout>

#include <gtest/gtest.h>

using namespace tambrix;

namespace {

class WatchedWindow : public QWidget
{
public:
    int layouts = 0;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::LayoutRequest)
            ++layouts;
        return QWidget::event(event);
    }
};

} // namespace

TEST(SteadyPlaceTest, TellsTheLayoutOnlyOfTheRoomThatAValueNeeds)
{
    WatchedWindow window;
    auto* value = new ValueLabel(QStringLiteral("lblValue"), QStringLiteral("Value"), {});
    value->setWidest(QStringLiteral("00000"));
    auto* layout = new QHBoxLayout(&window);
    layout->addWidget(new SteadyPlace(value), 0, Qt::AlignLeft);
    window.show();
    QApplication::processEvents();
    const int width = value->width();

    struct Case
    {
        const char* text;
        bool told;
        bool wider;
    };
    for (const Case& next : {Case{"12345", false, false}, Case{"-1.5", false, false},
                             Case{"OFF", false, false}, Case{"wider than the room", true, true},
                             Case{"7", true, false}, Case{"99999", false, false}}) {
        SCOPED_TRACE(next.text);
        window.layouts = 0;
        value->setValue(QString::fromLatin1(next.text));
        QApplication::processEvents();
        EXPECT_EQ(window.layouts > 0, next.told);
        EXPECT_EQ(value->width() > width, next.wider);
        EXPECT_GE(value->width(), value->fontMetrics().horizontalAdvance(value->text()));
    }
    QFont large = value->font();
    large.setPointSize(3 * large.pointSize());
    value->setFont(large);
    QApplication::processEvents();
    EXPECT_GE(value->height(), value->fontMetrics().height());
}
