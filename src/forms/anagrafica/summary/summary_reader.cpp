#include "forms/anagrafica/summary/summary_reader.h"

#include <algorithm>
#include <functional>
#include <set>
#include <type_traits>
#include <utility>

#include "common/convert.h"
#include "common/nulls.h"
#include "forms/anagrafica/pricelists/price_sources.h"
#include "sql/preview.h"
#include "sql/profile.h"
#include "sql/summary.h"

namespace kebu::forms {

namespace {

// Columns of the current row; no value counts as 0 or "".
std::int32_t number(const ado::Recordset& row, std::string_view column) {
  return toInt32(CDecN(row.value(column)));
}

std::string text(const ado::Recordset& row, std::string_view column) {
  return RTrimN(row.value(column));
}

bool flag(const ado::Recordset& row, std::string_view column) {
  return toBoolean(CDecN(row.value(column)));
}

struct Counted {
  std::int64_t selected = 0;
  std::int64_t listed = 0;
};

Figure selectedOf(const std::optional<Counted>& counted) {
  return counted ? Figure(counted->selected) : std::nullopt;
}

Figure listedOf(const std::optional<Counted>& counted) {
  return counted ? Figure(counted->listed) : std::nullopt;
}

/// The rows of a query, as `row` makes something of each; nothing when they could not be read.
template <class Row>
auto allRows(const std::string& query, PageContext& context, Procedure& p, Row&& row) {
  using Made = std::invoke_result_t<Row&, const ado::Recordset&>;
  return p.step([&] {
    std::vector<Made> all;
    const Ref<ado::Recordset> rows = context.connection->Execute(query);
    for (; !rows->EOF_(); rows->MoveNext()) all.push_back(row(*rows));
    return std::optional(std::move(all));
  });
}

/// What a filter selects from a view, as "Conta" counts it.
std::optional<Counted> count(const FilterSubject& subject, const std::string& view,
                             const std::string& condition, PageContext& context, Procedure& p) {
  const std::string query = subject.countStatement(view, p.company(), condition);
  return p.step([&] {
    const Ref<ado::Recordset> row = context.connection->Execute(query);
    return std::optional(Counted{number(*row, "QUANTI"), number(*row, "ELENCATI")});
  });
}

}  // namespace

Summary SummaryReader::read() {
  Summary summary = known();
  progress_.during("CaricaRiepilogo", "Lettura del riepilogo in corso...", [&](Procedure& p) {
    const auto painted = context_.paintedMeanwhile();
    readDatabase(summary, p);
  });
  return summary;
}

Summary SummaryReader::known() const {
  const controls::RecordFrame& profile = context_.profile;
  Summary summary;
  summary.company = toDisplay(context_.company);
  summary.readAt = toDisplay(context_.now());
  summary.hasPendingChanges = pages_.haveChanges();
  summary.job = pages_.synchronisation.lastRequest();
  summary.unknownCodes = unknownCodes();
  if (!profile.isRead()) return summary;
  summary.isLinked = profile.hasRecord() && profile.status() != controls::FrameStatus::New;
  if (*summary.isLinked) return summary;
  // A company without a profile publishes nothing.
  for (Summary::Published* part : {&summary.customers, &summary.articles}) {
    part->selected = part->listed = 0;
  }
  summary.slots.emplace();
  summary.deposits.emplace();
  return summary;
}

std::vector<std::string> SummaryReader::unknownCodes() const {
  std::vector<std::string> codes = pages_.parameters.unknownCodes();
  const auto add = [&](const char* page, const FilterEditor& filter) {
    for (const std::string& field : filter.unknownCodes()) {
      codes.push_back(context_.translate(page) + ": " + field);
    }
  };
  add("Filtro clienti", pages_.filters.customersFilter());
  add("Filtro articoli", pages_.filters.articlesFilter());
  return codes;
}

void SummaryReader::readDatabase(Summary& summary, Procedure& p) {
  const bool isLinked = summary.isLinked == true;
  const Stored stored = isLinked ? readParameters(summary, p) : Stored();
  const auto viewOf = [&](const FilterEditor& filter) {
    return p.lookUpText(sql::NomeTabella(filter.subject().previewKind), "Tabella");
  };
  const FilterEditor& customers = pages_.filters.customersFilter();
  readPublished(summary.customers, customers, stored.customers, viewOf(customers), p);
  const FilterEditor& articles = pages_.filters.articlesFilter();
  const std::string articlesView = viewOf(articles);
  readPublished(summary.articles, articles, stored.articles, articlesView, p);
  if (isLinked) {
    readSlots(summary, p);
    if (stored.articles) readPrices(summary, articlesView, *stored.articles, p);
    readDeposits(summary, p);
  }
  readRules(summary, p);
}

SummaryReader::Stored SummaryReader::readParameters(Summary& summary, Procedure& p) {
  struct Parameters {
    std::string customers;
    std::string articles;
    bool arePricesManaged = false;
  };
  const auto read = allRows(sql::Parametri(p.profile()), context_, p, [](const Rows& row) {
    return Parameters{text(row, "GM04_WHERECLIFOR"), text(row, "GM04_WHERESELARTICOLI"),
                      flag(row, "GM04_FLGGESTPREZZI")};
  });
  if (!read) return {};
  // A profile without parameters restricts nothing.
  const Parameters found = read->empty() ? Parameters() : read->front();
  summary.arePricesManaged = found.arePricesManaged;
  return {found.customers, found.articles};
}

void SummaryReader::readPublished(Summary::Published& published, const FilterEditor& filter,
                                  const std::optional<std::string>& stored, const std::string& view,
                                  Procedure& p) {
  if (view.empty()) return;  // which view it is could not be read
  const auto all = count(filter.subject(), view, "", context_, p);
  published.all = selectedOf(all);
  published.allListed = listedOf(all);
  if (!stored) return;
  const auto passing = stored->empty() ? all : count(filter.subject(), view, *stored, context_, p);
  published.selected = selectedOf(passing);
  published.listed = listedOf(passing);
  published.isStated = p.step([&] { return std::optional(RTrimN(filter.condition()) == *stored); });
  if (published.isStated == true) readExclusions(published, filter, view, p);
}

void SummaryReader::readExclusions(Summary::Published& published, const FilterEditor& filter,
                                   const std::string& view, Procedure& p) {
  const auto stated = p.step([&] { return std::optional(filter.clauses()); });
  if (!stated) {
    published.isStated.reset();
    return;
  }
  const std::vector<FilterClause>& clauses = *stated;
  std::vector<Summary::Exclusion>& exclusions = published.exclusions;
  for (const FilterClause& clause : clauses) exclusions.push_back({clause.words, {}});
  for (std::size_t i = 0; i < clauses.size(); ++i) {
    const Figure passing =
        clauses.size() == 1
            ? published.selected
            : selectedOf(count(filter.subject(), view, clauses[i].condition, context_, p));
    if (published.all && passing) exclusions[i].excluded = *published.all - *passing;
  }
  // What excludes most comes first, what is not known last.
  std::ranges::stable_sort(exclusions, std::greater(), &Summary::Exclusion::excluded);
}

void SummaryReader::readSlots(Summary& summary, Procedure& p) {
  struct StoredSlot {
    Summary::Slot slot;
    std::int32_t type;
    Value key;
  };
  auto stored = allRows(sql::ListiniMemorizzati(p.profile()), context_, p, [](const Rows& row) {
    const std::int32_t type = number(row, "GM57_INDTIPO");
    const std::string_view key = priceKey(type);
    return StoredSlot{{.number = number(row, "GM57_CODPREZZO"),
                       .isActive = flag(row, "GM57_FLGATTIVO"),
                       .hasSource = type != tsNessuna},
                      type,
                      key.empty() ? Value() : row.value(key)};
  });
  if (!stored) return;
  std::vector<Summary::Slot> slots;
  for (StoredSlot& each : *stored) {
    describe(each.slot, each.type, each.key, p);
    slots.push_back(std::move(each.slot));
  }
  summary.slots = std::move(slots);
}

void SummaryReader::describe(Summary::Slot& slot, std::int32_t type, const Value& key,
                             Procedure& p) {
  const auto* const source = std::ranges::find(priceSources, type, &controls::ValueListItem::code);
  slot.source = source == std::end(priceSources) ? std::to_string(type)
                                                 : context_.translate(std::string(source->caption));
  const std::string_view column = priceKey(type);
  if (column.empty()) return;
  slot.isComplete = isPriceKeyGiven(type, key);
  if (!slot.isComplete) return;
  slot.source += ' ' + trimRight(toDisplay(key));
  if (type == tsListinoScaglQt) return;
  slot.description = p.step([&] {
    const auto [query, field] = priceKeyDescription(context_, column, type, RTrimN(key));
    return std::optional(context_.lookUpText(query, field));
  });
  slot.isUnknown = slot.description && slot.description->empty();
}

void SummaryReader::readPrices(Summary& summary, const std::string& view, const std::string& filter,
                               Procedure& p) {
  if (!summary.slots || view.empty()) return;
  std::set<std::int32_t> active;
  for (const Summary::Slot& slot : *summary.slots) {
    if (slot.isActive) active.insert(slot.number);
  }
  if (active.empty()) return;
  const std::string query = sql::ContaPrezzi(view, p.company(), filter, active);
  p.step([&] {
    const Ref<ado::Recordset> row = context_.connection->Execute(query);
    for (Summary::Slot& slot : *summary.slots) {
      const bool isPublished = slot.number >= 1 && slot.number <= sql::publishedPrices;
      if (!slot.isActive || !isPublished) continue;
      slot.articles = number(*row, "PREZZO" + std::to_string(slot.number));
    }
    summary.variantsWithoutPrice = number(*row, "SENZAPREZZO");
  });
}

void SummaryReader::readDeposits(Summary& summary, Procedure& p) {
  summary.deposits =
      allRows(sql::DepositiMemorizzati(p.profile(), p.company()), context_, p, [](const Rows& row) {
        return Summary::Deposit{.code = text(row, "GM56_DEPGIACENZE_MG58"),
                                .description = text(row, "MG58_DESCRDEP"),
                                .isPreferred = flag(row, "GM56_FLGPREFCOSTOART"),
                                .isUnknown = row.value("MG58_CODDEP").isNull()};
      });
}

void SummaryReader::readRules(Summary& summary, Procedure& p) {
  const Date today = context_.today();
  // The last day counts as a whole.
  const Date end = Date::fromDayNumber(today.dayNumber() + Summary::daysAhead + 1).value_or(today);
  summary.rules = allRows(sql::ContaRegole(p.company(), today.toAnsi(), end.toAnsi()), context_, p,
                          [](const Rows& row) {
                            return Summary::Rules{.listType = number(row, "GM61_INDTIPOLISTINO"),
                                                  .isOnPrice = flag(row, "GM61_FLGSCONTISUPRZ"),
                                                  .active = number(row, "ATTIVE"),
                                                  .expiring = number(row, "INSCADENZA"),
                                                  .expired = number(row, "SCADUTE")};
                          });
}

}  // namespace kebu::forms
