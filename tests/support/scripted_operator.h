#pragma once

#include "link/operator.h"

#include <deque>
#include <functional>
#include <vector>

namespace tambrix {

/// Records every box that would be shown. Gives the queued answers in order; after them the one
/// that ends a box most carefully: Ok, No, or Cancel.
template <typename Face> class Scripted : public Face
{
public:
    BoxAnswer showMessage(const OperatorBox& box) override
    {
        boxes.push_back(box);
        if (whileShown)
            whileShown();
        if (answers.empty())
            return carefulAnswer(box.buttons);
        const BoxAnswer answer = answers.front();
        answers.pop_front();
        return answer;
    }

    std::vector<OperatorBox> boxes;
    std::deque<BoxAnswer> answers;
    std::function<void()> whileShown; ///< what happens while a box is open

private:
    static BoxAnswer carefulAnswer(BoxButtons buttons)
    {
        if (buttons == BoxButtons::Ok)
            return BoxAnswer::Ok;
        return buttons == BoxButtons::YesNo ? BoxAnswer::No : BoxAnswer::Cancel;
    }
};

using ScriptedOperator = Scripted<Operator>;

} // namespace tambrix
