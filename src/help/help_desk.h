#pragma once

#include "help/help_window.h"
#include "shell/program_state.h"

#include <QObject>
#include <QPointer>

#include <optional>

class QMessageBox;

namespace tambrix {

/// The commands of the Help menu, and F1 everywhere in the program: it opens the topic of what has
/// the focus, found by the name of the control or of the nearest window around it that the help
/// knows. A property "helpTopic" on a widget goes before its name.
class HelpDesk : public QObject
{
    Q_OBJECT

public:
    explicit HelpDesk(ProgramState& state);
    ~HelpDesk() override;

    /// Help > Help Topics.
    void showTopics() { showPage({}); }

    /// The topic of this widget, or the contents when it has none.
    void showTopicOf(const QWidget* widget) { showPage(topicOf(widget)); }

    /// Help > About TAMBRIX.
    void showAbout();

    /// Where the help explains this widget; empty when nowhere.
    QUrl topicOf(const QWidget* widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const HelpBook& book();
    void showPage(const QUrl& url);
    void sayMissing();
    HelpWindow& window();

    ProgramState& m_state;
    std::optional<HelpBook> m_book; ///< read when it is first asked for
    QPointer<HelpWindow> m_window;
    QPointer<QMessageBox> m_missing; ///< says that the help file is missing
};

} // namespace tambrix
