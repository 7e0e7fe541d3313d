#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "forms/anagrafica/filters/filter_pages.h"
#include "forms/anagrafica/profile/parameters/parameter_page.h"
#include "forms/anagrafica/profile/synchronisation.h"
#include "forms/anagrafica/progress_display.h"
#include "forms/anagrafica/summary/summary.h"
#include "forms/page_context.h"
#include "forms/procedure.h"

namespace kebu::forms {

/// Reads the summary from what is stored. It runs queries only. A query that is ignored leaves its
/// part unknown; after Abort the rest is unknown, too.
class SummaryReader {
 public:
  /// The pages that know what the database does not tell.
  struct Pages {
    const ParameterPage& parameters;
    const FilterPages& filters;
    const Synchronisation& synchronisation;
    std::function<bool()> haveChanges;  ///< whether there are changes that are not saved
  };

  SummaryReader(PageContext& context, ProgressDisplay& progress, Pages pages)
      : context_(context), progress_(progress), pages_(std::move(pages)) {}

  Summary read();

  PageContext& context() const { return context_; }

 private:
  using Rows = ado::Recordset;
  /// The filters of the profile as they are stored; nothing that could not be read.
  struct Stored {
    std::optional<std::string> customers;
    std::optional<std::string> articles;
  };

  /// What the window itself knows.
  Summary known() const;
  std::vector<std::string> unknownCodes() const;

  void readDatabase(Summary& summary, Procedure& p);
  Stored readParameters(Summary& summary, Procedure& p);
  void readPublished(Summary::Published& published, const FilterEditor& filter,
                     const std::optional<std::string>& stored, const std::string& view,
                     Procedure& p);
  void readExclusions(Summary::Published& published, const FilterEditor& filter,
                      const std::string& view, Procedure& p);
  void readSlots(Summary& summary, Procedure& p);
  void describe(Summary::Slot& slot, std::int32_t type, const Value& key, Procedure& p);
  void readPrices(Summary& summary, const std::string& view, const std::string& filter,
                  Procedure& p);
  void readDeposits(Summary& summary, Procedure& p);
  void readRules(Summary& summary, Procedure& p);

  PageContext& context_;
  ProgressDisplay& progress_;
  Pages pages_;
};

}  // namespace kebu::forms
