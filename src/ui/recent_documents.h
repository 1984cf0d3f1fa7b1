// The menu of recent documents, beside the button that chooses a document.
#pragma once

#include <functional>
#include <string>

class QToolButton;

namespace quorvel {

// Adds the menu to the button. The newest document is first. Documents that no longer exist are
// grey. `choose` is called with the chosen document after the menu has closed. The last entry
// clears the list.
void OfferRecentDocuments(QToolButton& button, std::function<void(const std::string&)> choose);

}  // namespace quorvel
