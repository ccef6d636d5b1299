#pragma once

#include <string>

namespace tambrix {

enum class BoxIcon { Information, Question, Warning, Critical };
enum class BoxButtons { Ok, RetryCancel, YesNo, YesNoCancel };
enum class BoxAnswer { Ok, Retry, Cancel, Yes, No };

/// One message box: what the operator reads and may answer. The text keeps its CR or CR LF.
struct OperatorBox
{
    BoxIcon icon = BoxIcon::Information;
    BoxButtons buttons = BoxButtons::Ok;
    std::string title;
    std::string text;
};

/// The person at the press, as the link sees him.
class Operator
{
public:
    virtual ~Operator() = default;

    /// Shows the box modally and returns the answer once it has been given. Closing the box by
    /// its frame counts as Cancel, as No where there is no Cancel, and as Ok where there is
    /// neither.
    virtual BoxAnswer showMessage(const OperatorBox& box) = 0;
};

} // namespace tambrix
