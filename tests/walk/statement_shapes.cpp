#include "tests/walk/statement_shapes.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>
#include <string_view>

#include "common/convert.h"
#include "sql/deposits.h"
#include "sql/filters.h"
#include "sql/preview.h"
#include "sql/price_lists.h"
#include "sql/profile.h"
#include "sql/summary.h"

namespace kebu::tests {

namespace {

bool isWordByte(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '@' || c == '#' ||
         c == '$' || (static_cast<unsigned char>(c) & 0x80) != 0;
}

bool isDigit(char c) {
  return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

/// Reads a statement word by word.
class Words {
 public:
  explicit Words(std::string_view text) : text_(text) {}

  /// The next word, "" at the end.
  std::string next() {
    skipBlanks();
    if (at_ == text_.size()) return "";
    const char c = text_[at_];
    if (c == '\'') return skipText();
    if (!isWordByte(c)) return std::string(1, text_[at_++]);
    const std::size_t from = at_;
    const bool isNumber = isDigit(c);
    while (at_ < text_.size() && (isWordByte(text_[at_]) || (isNumber && text_[at_] == '.'))) {
      ++at_;
    }
    if (isNumber) return "?";
    std::string word(text_.substr(from, at_ - from));
    std::transform(word.begin(), word.end(), word.begin(),
                   [](unsigned char b) { return static_cast<char>(std::tolower(b)); });
    return word.starts_with("##") ? "##" : word;
  }

 private:
  void skipBlanks() {
    while (at_ < text_.size()) {
      if (text_.substr(at_, 2) == "--") {
        at_ = std::min(text_.find('\n', at_), text_.size());
      } else if (std::isspace(static_cast<unsigned char>(text_[at_])) != 0) {
        ++at_;
      } else {
        return;
      }
    }
  }
  std::string skipText() {
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] != '\'') continue;
      if (text_.substr(at_, 2) != "''") {
        ++at_;
        return "?";
      }
      ++at_;
    }
    return "'";  // not closed, as in no shape
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

/// The tables whose rows ADO writes for a recordset.
constexpr std::string_view editedTables[] = {"##", "gm03_dispositivi", "gm04_parametritvro",
                                             "gm19_dettconf", "gm61_kbdiscountrules"};

bool isEdit(const std::string& shape) {
  for (const std::string_view table : editedTables) {
    for (const std::string_view start : {"insert into [ ", "update [ ", "delete from [ "}) {
      const std::string whole = std::string(start) + std::string(table) + " ]";
      if (shape == whole || shape.starts_with(whole + " ")) return true;
    }
  }
  return false;
}

/// The statements that the host's services make, for descriptions and look-ups of its codes.
bool isOfHost(const std::string& shape) {
  static const std::regex reading(
      "select \\w+( as \\w+)?( , \\w+)* from \\w+ with \\( nolock \\)"
      "( inner join \\w+ with \\( nolock \\) on \\w+ = \\w+)?"
      " where \\w+ = \\?( and \\w+ = \\?)*( order by \\w+)?");
  static const std::regex variants(
      "select substring \\( mg5f_codicevar , \\? \\) , mg5f_descr_var from mg5f_dimeconf .*");
  static const std::regex values("select codice , descr from \\( values [(?) ,]+ as v .*");
  return std::regex_match(shape, reading) || std::regex_match(shape, variants) ||
         std::regex_match(shape, values);
}

/// The call of the ERP's procedure for jobs, which ADO makes of a command and its parameters.
constexpr std::string_view job =
    "exec spfw_newattjob @vocemenu = ? , @descrjob = ? , @descratt = ? , @pathinst = ? , "
    "@parametro = ? , @ditta = ? , @alwaysnewatt = ?";

/// Whether the words are conditions of a filter: " AND " and one in parentheses, again and again.
bool areConditions(std::string_view rest) {
  Words words(rest);
  std::string word = words.next();
  while (!word.empty()) {
    if (word != "and") return false;
    word = words.next();
    if (word == "exists") word = words.next();
    if (word != "(") return false;
    for (int depth = 1; depth > 0;) {
      word = words.next();
      if (word.empty() || word == ";") return false;
      depth += word == "(" ? 1 : word == ")" ? -1 : 0;
    }
    word = words.next();
  }
  return true;
}

}  // namespace

std::string shapeOf(const std::string& statement) {
  Words words(statement);
  std::string shape;
  for (std::string word = words.next(); !word.empty(); word = words.next()) {
    // A negative number is a value, too, and so is each further one of a list.
    if (word == "?" && shape.ends_with(" -")) shape.resize(shape.size() - 2);
    if (word == "?" && shape.ends_with("? ,")) {
      shape.resize(shape.size() - 2);
      continue;
    }
    shape += (shape.empty() ? "" : " ") + word;
  }
  return shape;
}

StatementShapes::StatementShapes(const std::filesystem::path& texts) {
  for (const auto& entry : std::filesystem::directory_iterator(texts)) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    const std::string_view end = "\nGO\r\n";
    for (std::size_t from = 0; from < content.size();) {
      const std::size_t found = content.find(end, from);
      if (found == std::string::npos) break;
      const std::size_t title = content.find('\n', content.find("--", from)) + 1;
      whole_.insert(shapeOf(content.substr(title, found - title)));
      from = found + end.size();
    }
  }
  // A working table that could not be named is missing in its statements, which the server refuses.
  std::set<std::string> unnamed;
  for (const std::string& shape : whole_) {
    unnamed.insert(replaceAll(shape, " ##", ""));
    unnamed.insert(replaceAll(shape, " into ##", ""));  // candidates are only read then
  }
  whole_.merge(unnamed);
  if (whole_.empty()) throw std::runtime_error("no statement texts in " + texts.string());
  const sql::Company company{"1"};
  for (const std::string& statement :
       {sql::DecodificaDeposito(company, ""), sql::DepositoDocumento(company, ""),
        sql::DescrizioneMacrocategoria(company, ""), sql::DescrizioneMacroarea(company, ""),
        sql::DescrizioneDeposito(company, "")}) {
    beforeTexts_.push_back(shapeOf(statement.substr(0, statement.find('\''))));
  }
  for (const std::string& shape : whole_) {
    if (!shape.starts_with("insert into gm61_kbdiscountrules")) continue;
    beforeTexts_.push_back(shape.substr(0, shape.find("values (")));
  }
  for (const char* view : {"VGM16_KBWSUSERS_KELMORIA", "VGM16_KBWSUSERS_KELMORIA_PERS",
                           "VGM19_KBWSPRODUCTS_KELMORIA", "VGM19_KBWSPRODUCTS_KELMORIA_PERS"}) {
    const std::string filter = " {filter}";
    for (const std::string& statement :
         {sql::ContaArticoli(view, company, filter), sql::ContaClienti(view, company, filter),
          sql::ArticoliPubblicati(view, company, filter),
          sql::ClientiPubblicati(view, company, filter),
          sql::ContaPrezzi(view, company, filter, {})}) {
      const std::size_t at = statement.find(filter);
      aroundFilters_.push_back(
          {shapeOf(statement.substr(0, at)), shapeOf(statement.substr(at + filter.size()))});
    }
  }
}

bool StatementShapes::know(const std::string& statement, bool edit) const {
  const std::string shape = shapeOf(statement);
  if (edit) return isEdit(shape);
  // What is left of a statement that the host should have made: ADO refuses it.
  if (shape.empty()) return true;
  if (whole_.contains(shape) || shape == job || isOfHost(shape)) return true;
  const bool isBroken = std::ranges::any_of(
      beforeTexts_, [&](const std::string& beginning) { return shape.starts_with(beginning); });
  if (isBroken) return true;
  return std::ranges::any_of(aroundFilters_, [&](const Around& around) {
    const auto& [before, after] = around;
    if (!shape.starts_with(before) || !shape.ends_with(after)) return false;
    if (shape.size() < before.size() + after.size()) return false;
    const std::size_t length = shape.size() - before.size() - after.size();
    return areConditions(std::string_view(shape).substr(before.size(), length));
  });
}

}  // namespace kebu::tests
