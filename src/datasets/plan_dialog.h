#pragma once

#include "data/label_edits.h"

#include <QDialog>

class QFormLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace tambrix {

/// Shows what an edit of several values would do, and what the rules forbid or cut of it, before
/// anything is changed.
class PlanDialog : public QDialog
{
    Q_OBJECT

public:
    PlanDialog(const QString& title, const QString& whatIsWrong, QWidget* parent);

    void setPlan(EditPlan plan);
    const EditPlan& plan() const { return m_plan; }

protected:
    /// Puts a form above the list, whose fields the Tab key visits first.
    void setForm(QFormLayout* form, std::vector<QWidget*> fields);
    /// There is no plan to show, for this reason.
    void showNothing(const QString& reason);

private:
    EditPlan m_plan;
    QString m_whatIsWrong;
    QVBoxLayout* m_top;
    QLabel* m_lblPlan;
    QListWidget* m_lstObjections;
    QPushButton* m_cmdOk;
    QPushButton* m_cmdCancel;
};

/// "Scale...": percent of the ON durations of labels and ductors.
class ScaleDialog : public PlanDialog
{
    Q_OBJECT

public:
    ScaleDialog(const SetupDataRecord& record, const std::vector<int>& labels,
                const DuctorSet& ductors, QWidget* parent);

private:
    void reckon();

    const SetupDataRecord& m_record;
    QLineEdit* m_txtPercent;
    QLineEdit* m_txtLabels;
    QLineEdit* m_txtDuctors;
};

/// "Copy Label to...": all values of one label for others.
class CopyLabelDialog : public PlanDialog
{
    Q_OBJECT

public:
    CopyLabelDialog(const SetupDataRecord& record, int from, QWidget* parent);

private:
    void reckon();

    const SetupDataRecord& m_record;
    int m_from;
    QLineEdit* m_txtLabels;
};

} // namespace tambrix
