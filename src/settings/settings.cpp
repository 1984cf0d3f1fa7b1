#include "settings/settings.h"

#include <utility>
#include <variant>

#include "settings/option_table.h"

namespace quorvel {
namespace {

void CopyField(const Option& option, const ConcordanceSettings& from, ConcordanceSettings& to) {
  const auto copy = [&]<typename Kind>(const Kind& kind) {
    if constexpr (requires { kind.field; }) to.*kind.field = from.*kind.field;
  };
  std::visit(copy, option.kind);
}

}  // namespace

void InitializeVariables(ConcordanceSettings& settings, bool reinitialize) {
  ConcordanceSettings initial;
  initial.reading = settings.reading;
  for (const Option& option : AllOptions()) {
    const bool isKept =
        option.kept == Kept::always || (option.kept == Kept::unlessReinitialized && !reinitialize);
    if (isKept) CopyField(option, settings, initial);
  }
  settings = std::move(initial);
}

}  // namespace quorvel
