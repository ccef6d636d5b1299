#pragma once

#include "link/operator.h"

namespace tambrix {

/// The link's message boxes. While the link waits for the board the user's input is kept out, and
/// what was meant for a window that a box then blocks is lost. Of that input, closing the program
/// is served before the box opens; it is carried out once the link is free.
class LinkBoxes : public Operator
{
public:
    explicit LinkBoxes(Operator& person) : m_person(person) {}

    BoxAnswer showMessage(const OperatorBox& box) override;

private:
    Operator& m_person;
};

} // namespace tambrix
