// The menu of the documents that were inputs lately, beside the button that chooses one.
#pragma once

#include <functional>
#include <string>

class QToolButton;

namespace quorvel {

// Gives the button that menu, newest document first. Those that are not there any more are greyed.
// What the user chooses goes to `choose`, once the menu has gone. The last entry clears the list.
void OfferRecentDocuments(QToolButton& button, std::function<void(const std::string&)> choose);

}  // namespace quorvel
