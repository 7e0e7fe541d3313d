#include "sql/discount_candidates.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "common/convert.h"
#include "forms/anagrafica/discounts/list_types.h"
#include "tests/discounts/expected_candidates.h"
#include "workbench/company/company.h"
#include "workbench/engine/execution/database.h"

namespace kebu::sql {
namespace {

constexpr std::int32_t priceRows = 4000;

/// The demo company, with what its price lists may hold besides.
const engine::Database& demo() {
  static const auto database = [] {
    auto made = engine::Database::createInMemory();
    engine::Session session(made);
    workbench::createSchema(session);
    workbench::loadDemo(session);
    session.execute(
        // Two rows of one candidate that overlap; one that ends today's candidate early.
        "INSERT INTO LI16_LISTARTCF (LI16_DITTA_CG18, LI16_CLIFOR_CG44, LI16_CODART_MG66, "
        "LI16_FLGLIST, LI16_DATAINIZIOVAL, LI16_DATAFINEVAL, LI16_PREZZO, LI16_SC1PER) "
        "VALUES (1, 1001, 'CAT-0003', 1, '20210101', '20880101', 19.9, 10), "
        "(1, 1001, 'CAT-0003', 1, '20210201', '20890101', 1000000, 0.01) "
        // No option, and one of blanks; a path with a hole; areas without a description.
        "INSERT INTO LI10_LISTARTIC (LI10_DITTA_CG18, LI10_CODART_MG66, LI10_OPZIONE_MG5E, "
        "LI10_NUMLIST, LI10_DATAINIZIOVAL, LI10_DATAFINEVAL, LI10_PREZZO, LI10_SC1PER) "
        "VALUES (1, 'ACC-0028', NULL, 77, '20200101', '20991231', 0.333333, 33.33), "
        "(1, 'ACC-0028', ' ', 78, '20200101', '20991231', 19.9, 10) "
        "INSERT INTO LI33_LISTCODP (LI33_DITTA_CG18, LI33_AFAM_MG53, LI33_ASFAM_MG54, "
        "LI33_AGRUP_MG55, LI33_ASGRUP_MG56, LI33_CODICE_CG08, LI33_DATAINIZIOVAL, "
        "LI33_DATAFINEVAL, LI33_PREZZO, LI33_SC1PER) "
        "VALUES (1, ' A', 'B', '', 'D', 'EURO', '20200101', '20991231', 5, 2), "
        "(1, 'A', '', '', '', 'EURO', '20200101', '20991231', 6, 3), "
        "(1, 'A', 'B', 'C', NULL, 'EURO', '20200101', '20991231', 7, 4) "
        "INSERT INTO LI12_LISTARTZONE (LI12_DITTA_CG18, LI12_CODART_MG66, LI12_MACROAREA_MG07, "
        "LI12_AREA_MG08, LI12_CODICE_CG08, LI12_DATAINIZIOVAL, LI12_DATAFINEVAL, LI12_PREZZO, "
        "LI12_SC1PER) VALUES (1, 'ACC-0028', 'NOR', 'XXX', 'EURO', '20200101', '20991231', 9, 1)");
    return made;
  }();
  return *database;
}

std::string textOf(const Candidate& candidate) {
  std::string text;
  for (const auto& [column, value] : candidate) text += column + "=" + value + "\n";
  return text;
}

struct Kind {
  DiscountMode mode;
  std::int32_t listType;
  const char* company;
};

class CandidatesTest : public testing::TestWithParam<Kind> {
 protected:
  /// Computes the kind's candidates; the numbers of their names go to `numbers_`.
  std::vector<Candidate> compute() {
    const Kind& of = GetParam();
    const DiscountKind& kind = discountKind(of.mode, of.listType);
    session_.execute(CreaCandidati("##tempCandidati", {of.company}, kind, priceRows));
    const engine::ResultSet result =
        session_.execute(RigheCandidati("##tempCandidati", kind)).front();
    std::vector<Candidate> candidates;
    for (const auto& row : result.rows) {
      Candidate& candidate = candidates.emplace_back();
      for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string& column = result.columns[i].name;
        std::string text = candidateText(row[i]);
        if (column == "GM61_ID") {
          EXPECT_EQ(i, 0U);
          ids_.insert(std::stoi(text));
          continue;
        }
        if (column == "GM61_NOMEREGOLA") {
          const std::size_t number = text.rfind(' ') + 1;
          numbers_[text.substr(0, number)].insert(std::stoi(text.substr(number)));
          text.erase(number);
        }
        candidate.emplace_back(column, text);
      }
    }
    return candidates;
  }

  static std::set<std::string> texts(const std::vector<Candidate>& candidates) {
    std::set<std::string> all;
    for (const Candidate& candidate : candidates) all.insert(textOf(candidate));
    return all;
  }

  std::shared_ptr<engine::Database> database_ = demo().clone();
  engine::Session session_{database_};
  std::set<int> ids_;
  std::map<std::string, std::multiset<int>> numbers_;
};

TEST_P(CandidatesTest, AreWhatThePriceListsHoldToday) {
  const Kind& of = GetParam();
  const auto expected = expectedCandidates(session_, of.mode, of.listType, of.company);
  const auto found = compute();
  ASSERT_GE(expected.size(), of.company[0] == '1' ? 40U : 1U) << "the demo company is too poor";
  EXPECT_EQ(found.size(), expected.size());
  const std::set<std::string> wanted = texts(expected);
  const std::set<std::string> given = texts(found);
  std::vector<std::string> missing;
  std::vector<std::string> surplus;
  std::set_difference(wanted.begin(), wanted.end(), given.begin(), given.end(),
                      std::back_inserter(missing));
  std::set_difference(given.begin(), given.end(), wanted.begin(), wanted.end(),
                      std::back_inserter(surplus));
  EXPECT_TRUE(missing.empty()) << missing.size() << " missing, as\n" << missing.front();
  EXPECT_TRUE(surplus.empty()) << surplus.size() << " surplus, as\n" << surplus.front();
}

TEST_P(CandidatesTest, AreNumberedFromOneAndNamedAfterTheRulesThereWere) {
  // Rules stored and deleted since count as well: the identity has gone on.
  session_.execute(
      "INSERT INTO GM61_KBDISCOUNTRULES (GM61_ATTIVA) VALUES (1), (1) "
      "DELETE FROM GM61_KBDISCOUNTRULES WHERE GM61_DITTA_CG18 IS NULL");
  const int identity =
      toInt32(session_.execute("SELECT IDENT_CURRENT('GM61_KBDISCOUNTRULES')").front().rows[0][0]);
  ASSERT_EQ(identity, 8);
  const auto found = compute();
  EXPECT_EQ(ids_.size(), found.size());
  EXPECT_EQ(*ids_.begin(), 1);
  EXPECT_EQ(*ids_.rbegin(), static_cast<int>(found.size()));
  for (const auto& [label, numbers] : numbers_) {
    SCOPED_TRACE(label);
    // The list by deposit alone counts from 1; grids begin after the rules on price.
    const int before = label == "Lis. art./dep. - "               ? 0
                       : GetParam().mode == DiscountMode::OnPrice ? identity
                                                                  : identity + priceRows;
    std::multiset<int> wanted;
    for (std::size_t i = 1; i <= numbers.size(); ++i) wanted.insert(before + static_cast<int>(i));
    EXPECT_EQ(numbers, wanted);
  }
}

std::vector<Kind> kinds() {
  std::vector<Kind> all;
  for (const char* company : {"1", "2"}) {
    for (const DiscountKind& kind : discountKinds()) {
      all.push_back({kind.mode, kind.listType, company});
    }
  }
  return all;
}

// The combo offers the list types, and a type that is chosen is looked for among the kinds.
TEST(DiscountKinds, AreTwoForEveryListTypeThatTheUserIsOffered) {
  std::size_t offered = 0;
  for (const forms::DiscountListType& type : forms::discountListTypes) {
    if (type.number == 0) continue;
    ++offered;
    for (const DiscountMode mode : {DiscountMode::OnPrice, DiscountMode::Grid}) {
      EXPECT_EQ(discountKind(mode, type.number).listType, type.number);
    }
  }
  EXPECT_EQ(discountKinds().size(), 2 * offered);
}

INSTANTIATE_TEST_SUITE_P(EveryKind, CandidatesTest, testing::ValuesIn(kinds()),
                         [](const auto& test) {
                           const Kind& of = test.param;
                           return "AggiornaListini_" + std::to_string(of.listType) +
                                  (of.mode == DiscountMode::OnPrice ? "_A_" : "_B_") + "company" +
                                  of.company;
                         });

}  // namespace
}  // namespace kebu::sql
