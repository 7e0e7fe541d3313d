#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "common/date.h"
#include "controls/control.h"
#include "controls/sheet.h"
#include "forms/anagrafica/profile/synchronisation.h"

namespace kebu::forms {

/// A number that was counted; nothing when it could not be read.
using Figure = std::optional<std::int64_t>;

/// What the profile publishes as it is stored, and what is to be looked at. A part that is absent
/// could not be read.
struct Summary {
  /// What one condition of a filter leaves out by itself.
  struct Exclusion {
    std::string condition;  ///< in words
    Figure excluded;
  };

  /// The customers or the articles.
  struct Published {
    Figure all = {};        ///< that the company has
    Figure selected = {};   ///< that pass the stored filter
    Figure listed = {};     ///< of these, what the preview lists: customers with an e-mail address,
                            ///< articles with their variants
    Figure allListed = {};  ///< the same without the filter
    std::optional<bool> isStated = {};       ///< whether the page states the filter that is stored
    std::vector<Exclusion> exclusions = {};  ///< only of a filter that the page states
  };

  struct Slot {
    std::int32_t number = 0;
    bool isActive = false;
    bool hasSource = false;
    std::string source = {};                      ///< the type and its key
    std::optional<std::string> description = "";  ///< of the key, where it has one
    bool isComplete = true;                       ///< the key is given that the type needs
    bool isUnknown = false;                       ///< the key is a code that was not found
    Figure articles = {};  ///< with a price, of those that the filter selects
  };

  struct Deposit {
    std::string code = {};
    std::string description = {};
    bool isPreferred = false;
    bool isUnknown = false;
  };

  struct Rules {
    std::int32_t listType = 0;
    bool isOnPrice = false;
    std::int64_t active = 0;
    std::int64_t expiring = 0;  ///< within `daysAhead`
    std::int64_t expired = 0;
  };
  static constexpr std::int32_t daysAhead = 30;

  std::string company;
  std::string readAt;
  std::optional<bool> isLinked = {};  ///< whether the company has a profile
  bool hasPendingChanges = false;     ///< which do not count
  Published customers = {};
  Published articles = {};
  Figure variantsWithoutPrice = {};  ///< in any active slot; nothing without an active slot, too
  std::optional<std::vector<Slot>> slots = {};
  std::optional<bool> arePricesManaged = {};
  std::optional<std::vector<Deposit>> deposits = {};
  std::optional<std::vector<Rules>> rules = {};  ///< the kinds that have any
  std::optional<JobRequest> job = {};            ///< nothing when none was made
  std::vector<std::string> unknownCodes = {};    ///< where else a code was not found
};

/// The summary as the user reads it.
std::vector<controls::SheetLine> linesOf(const Summary& summary,
                                         const controls::Translator& translator);

}  // namespace kebu::forms
