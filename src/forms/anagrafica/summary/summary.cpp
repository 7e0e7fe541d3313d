#include "forms/anagrafica/summary/summary.h"

#include <algorithm>
#include <utility>

#include "common/convert.h"
#include "controls/progress.h"
#include "forms/anagrafica/discounts/list_types.h"
#include "forms/anagrafica/pricelists/price_sources.h"
#include "forms/filters/filter_editor.h"

namespace kebu::forms {

namespace {

using controls::Share;
using controls::SheetLine;
using Role = SheetLine::Role;

Figure difference(const Figure& whole, const Figure& part) {
  return whole && part ? Figure(*whole - *part) : std::nullopt;
}

void append(std::string& list, const std::string& text) {
  list += (list.empty() ? "" : ", ") + text;
}

/// Writes the lines of a summary, section by section.
class Writer {
 public:
  Writer(const Summary& summary, const controls::Translator& translator)
      : summary_(summary), translator_(translator) {}

  std::vector<SheetLine> write();

 private:
  void writeHead();
  void writeCustomers();
  void writeArticles();
  void writeFilter(const Summary::Published& published, const FilterSubject& subject);
  void writeSlots();
  void writeDeposits();
  void writeRules();
  void writeJob();
  void writeWarnings();
  void warnOfSlots();
  void warnOfCodes();
  /// A figure that is a warning unless it is 0 or unknown.
  void warnOf(const char* text, const Figure& figure);

  std::string translated(std::string_view text) const { return translator_(std::string(text)); }
  void add(Role role, std::string text) { lines_.push_back({role, std::move(text)}); }
  void heading(const char* text) { add(Role::Heading, translated(text)); }
  void note(const char* text) { add(Role::Note, translated(text)); }
  void entry(std::string label, std::string value, const std::optional<Share>& share = {}) {
    lines_.push_back({Role::Entry, std::move(label), std::move(value), share});
  }
  /// "225 di 260", with a bar, or what of it is known.
  void part(std::string label, const Figure& figure, const Figure& whole);

  std::string unknown();
  std::string number(const Figure& figure) {
    return figure ? controls::groupedNumber(*figure) : unknown();
  }
  std::string ofWhole(const Figure& figure, const Figure& whole) {
    return number(figure) + translated(" di ") + number(whole);
  }
  std::string nameOf(const Summary::Slot& slot) const;
  std::string wordsOf(const Summary::Rules& rules) const;

  const Summary& summary_;
  const controls::Translator& translator_;
  std::vector<SheetLine> lines_;
  bool isIncomplete_ = false;  ///< something is not known
};

std::vector<SheetLine> Writer::write() {
  writeHead();
  const auto head = static_cast<std::ptrdiff_t>(lines_.size());
  writeCustomers();
  writeArticles();
  writeSlots();
  writeDeposits();
  writeRules();
  writeJob();
  const auto rest = static_cast<std::ptrdiff_t>(lines_.size());
  writeWarnings();
  // What is to be done comes first. It is written last, since it tells whether anything is unknown.
  std::rotate(lines_.begin() + head, lines_.begin() + rest, lines_.end());
  return std::move(lines_);
}

std::string Writer::unknown() {
  isIncomplete_ = true;
  return translated("non noto");
}

void Writer::part(std::string label, const Figure& figure, const Figure& whole) {
  std::optional<Share> share;
  if (figure && whole) share = {*figure, *whole};
  entry(std::move(label), figure || whole ? ofWhole(figure, whole) : unknown(), share);
}

void Writer::writeHead() {
  const std::optional<bool> isLinked = summary_.isLinked;
  entry(translated("Ditta ") + summary_.company,
        isLinked ? translated(*isLinked ? "collegata" : "non collegata") : unknown());
  entry(translated("Letto"), summary_.readAt);
  if (isLinked == false) note("La ditta non è collegata: non viene pubblicato nulla.");
  if (summary_.hasPendingChanges) {
    note("Ci sono modifiche non salvate: qui contano i dati memorizzati.");
  }
}

void Writer::writeCustomers() {
  const Summary::Published& customers = summary_.customers;
  heading("Clienti");
  part(translated("Pubblicati"), customers.listed, customers.all);
  writeFilter(customers, customersSubject());
  part(translated("Senza e-mail"), difference(customers.all, customers.allListed), customers.all);
}

void Writer::writeArticles() {
  const Summary::Published& articles = summary_.articles;
  heading("Articoli");
  part(translated("Pubblicati"), articles.selected, articles.all);
  entry(translated("Righe dell'anteprima, varianti comprese"), number(articles.listed));
  writeFilter(articles, articlesSubject());
}

// What a stored filter that the page does not state consists of is not known: its text is never
// taken apart.
void Writer::writeFilter(const Summary::Published& published, const FilterSubject& subject) {
  if (summary_.isLinked != true) return;
  const std::string label = translated("Filtro");
  if (!published.isStated) {
    entry(label, unknown());
  } else if (!*published.isStated) {
    entry(label, translated("memorizzato diverso da quello della pagina"));
  } else if (published.exclusions.empty()) {
    entry(label, translated(subject.unrestricted));
  }
  for (const Summary::Exclusion& exclusion : published.exclusions) {
    part(translated("Esclusi da ") + exclusion.condition, exclusion.excluded, published.all);
  }
}

std::string Writer::nameOf(const Summary::Slot& slot) const {
  const auto* const at = std::ranges::find(priceSlots, slot.number, &controls::ValueListItem::code);
  return at == std::end(priceSlots) ? std::to_string(slot.number) : translated(at->caption);
}

void Writer::writeSlots() {
  heading("Listini");
  if (!summary_.slots) {
    entry(translated("Listini da pubblicare"), unknown());
    return;
  }
  bool anyActive = false;
  for (const Summary::Slot& slot : *summary_.slots) {
    if (!slot.isActive && !slot.hasSource) continue;
    std::string label = nameOf(slot) + ", " + slot.source;
    if (!slot.description) {
      label += " (" + unknown() + ')';
    } else if (!slot.description->empty()) {
      label += " (" + *slot.description + ')';
    }
    if (!slot.isActive) {
      entry(label, translated("non attivo"));
      continue;
    }
    anyActive = true;
    const Figure& all = summary_.articles.selected;
    const Figure missing = difference(all, slot.articles);
    if (!missing) {
      entry(label, unknown());
      continue;
    }
    entry(label,
          translated("in ") + ofWhole(slot.articles, all) + translated(", manca in ") +
              number(missing),
          Share{*slot.articles, *all});
  }
  if (!anyActive) note("Nessun listino attivo: non viene pubblicato nessun prezzo.");
}

void Writer::writeDeposits() {
  heading("Depositi");
  if (!summary_.deposits) {
    entry(translated("Depositi da pubblicare"), unknown());
    return;
  }
  for (const Summary::Deposit& deposit : *summary_.deposits) {
    entry(deposit.code + (deposit.description.empty() ? "" : " " + deposit.description),
          deposit.isPreferred ? translated("preferito") : "");
  }
  if (summary_.deposits->empty()) note("Nessun deposito: non viene pubblicata nessuna giacenza.");
}

std::string Writer::wordsOf(const Summary::Rules& rules) const {
  std::string words = controls::groupedNumber(rules.active);
  if (rules.expiring > 0) {
    words += translated(", in scadenza entro ") + std::to_string(Summary::daysAhead) +
             translated(" giorni: ") + controls::groupedNumber(rules.expiring);
  }
  if (rules.expired > 0)
    words += translated(", scadute: ") + controls::groupedNumber(rules.expired);
  return words;
}

void Writer::writeRules() {
  heading("Regole di sconto");
  if (!summary_.rules) {
    entry(translated("Regole attive"), unknown());
    return;
  }
  std::int64_t all = 0;
  for (const Summary::Rules& rules : *summary_.rules) all += rules.active;
  entry(translated("Regole attive"), controls::groupedNumber(all));
  for (const DiscountListType& type : discountListTypes) {
    if (type.number == 0) continue;
    for (const bool onPrice : {true, false}) {
      const auto at = std::ranges::find_if(*summary_.rules, [&](const Summary::Rules& rules) {
        return rules.listType == type.number && rules.isOnPrice == onPrice;
      });
      const bool isThere = at != summary_.rules->end();
      const std::string label =
          translated(type.caption) + " - " + translated(onPrice ? discountsOnPrice : discountGrids);
      if (isThere) {
        entry(label, wordsOf(*at), Share{at->active, all});
      } else {
        entry(label, "0");
      }
    }
  }
}

void Writer::writeJob() {
  heading("Sincronizzazione");
  const std::string label = translated("Importazione degli ordini");
  if (!summary_.job) {
    entry(label, translated("nessun salvataggio in questa finestra"));
    return;
  }
  entry(label, translated(summary_.job->isTaken ? "lavoro richiesto" : "lavoro non richiesto") +
                   ", " + toDisplay(summary_.job->at));
}

void Writer::warnOf(const char* text, const Figure& figure) {
  if (figure.value_or(0) > 0)
    add(Role::Warning, translated(text) + controls::groupedNumber(*figure));
}

void Writer::warnOfSlots() {
  if (!summary_.slots) return;
  std::string incomplete;
  std::string withoutSource;
  bool hasPrices = false;
  for (const Summary::Slot& slot : *summary_.slots) {
    if (!slot.isComplete) append(incomplete, nameOf(slot));
    if (slot.isActive && !slot.hasSource) append(withoutSource, nameOf(slot));
    hasPrices = hasPrices || (slot.isActive && slot.hasSource);
  }
  if (!incomplete.empty()) {
    add(Role::Warning,
        incomplete + ": " + translated("manca la chiave, nessun prezzo pubblicato."));
  }
  if (!withoutSource.empty()) {
    add(Role::Warning, withoutSource + ": " + translated(slotsWithoutSource));
  }
  if (hasPrices && summary_.arePricesManaged == false) {
    add(Role::Warning, translated(pricesNotManaged));
  }
}

void Writer::warnOfCodes() {
  std::string places;
  for (const std::string& place : summary_.unknownCodes) append(places, place);
  if (summary_.slots) {
    for (const Summary::Slot& slot : *summary_.slots) {
      if (slot.isUnknown) append(places, nameOf(slot));
    }
  }
  if (summary_.deposits) {
    for (const Summary::Deposit& deposit : *summary_.deposits) {
      if (deposit.isUnknown) append(places, translated("deposito ") + deposit.code);
    }
  }
  if (!places.empty()) add(Role::Warning, translated("Codici non trovati: ") + places);
}

void Writer::writeWarnings() {
  heading("Avvisi");
  const std::size_t before = lines_.size();
  warnOfSlots();
  warnOfCodes();
  warnOf("Clienti selezionati ma senza e-mail: ",
         difference(summary_.customers.selected, summary_.customers.listed));
  warnOf("Varianti senza prezzo in tutti i listini attivi: ", summary_.variantsWithoutPrice);
  std::int64_t expired = 0;
  if (summary_.rules) {
    for (const Summary::Rules& rules : *summary_.rules) expired += rules.expired;
  }
  warnOf("Regole di sconto scadute: ", expired);
  if (isIncomplete_) {
    add(Role::Warning, translated("Quello che non è noto non è stato letto."));
  }
  if (lines_.size() == before) note("Nessun avviso.");
}

}  // namespace

std::vector<SheetLine> linesOf(const Summary& summary, const controls::Translator& translator) {
  return Writer(summary, translator).write();
}

}  // namespace kebu::forms
