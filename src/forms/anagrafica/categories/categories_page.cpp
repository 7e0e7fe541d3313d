#include "forms/anagrafica/categories/categories_page.h"

#include "common/convert.h"
#include "common/nulls.h"
#include "common/platform.h"
#include "sql/categories.h"

namespace kebu::forms {

namespace {

/// The cause of a notice.
constexpr const char* staleCause = "categories changed meanwhile";

struct StoredLevel {
  int entity = 0;
  std::int32_t number = 0;
  CategoryLevels::Content content;
};

/// The current row of the stored levels.
StoredLevel levelOf(const ado::Recordset& row) {
  return {toInt32(CDecN(row.value("GM19_INDENTITA"))),
          toInt32(CDecN(row.value("GM19_PROG"))),
          {RTrimN(row.value("GM19_INDCLASSIF")), RTrimN(row.value("GM19_CODCLASSIF")),
           RTrimN(row.value("GM19_DESCRCLASSIF"))}};
}

}  // namespace

CategoriesPage::CategoriesPage(PageContext& context, controls::NavigatorBar& navigator,
                               ParameterPage& parameters)
    : context_(context),
      navigator_(navigator),
      parameters_(parameters),
      load_(context, {.cause = "categories",
                      .text = "Le categorie non sono state lette.",
                      .reload = [this] { LetturaDatiConfigurazioneCategorie(); },
                      .lock =
                          [this](bool locked) {
                            GRP_CATCLI.setLocked(locked);
                            GRP_CATART.setLocked(locked);
                          }}),
      customers_(customerCategories, context, catalogue_,
                 [this] { markChanged(customersChanged_); }),
      articles_(articleCategories, context, catalogue_, [this] { markChanged(articlesChanged_); }) {
  navigator_.ButtonClick.on(
      [this](bool&, const std::string& button) { INAV_CATCLIART_ButtonClick(button); });
}

void CategoriesPage::place(PageGroups& groups) {
  customers_.place(GRP_CATCLI);
  articles_.place(GRP_CATART);
  groups["GRPMAIN_CATCLIENTI"].addAll(GRP_CATCLI, GRP_PARCLI);
  groups["GRPMAIN_CATART"].add(GRP_CATART);
}

void CategoriesPage::setEnabled(bool enabled) {
  for (controls::GroupBox* group : {&GRP_CATART, &GRP_CATCLI, &GRP_PARCLI}) {
    group->setEnabled(enabled);
  }
}

void CategoriesPage::markChanged(bool& which) {
  which = true;
  navigator_.setModified(true);
  ChangedByUser.raise();
}

void CategoriesPage::clearChanged() {
  customersChanged_ = false;
  articlesChanged_ = false;
  ChangedByUser.raise();
}

void CategoriesPage::profileStored() {
  loaded_.clear();
}

bool CategoriesPage::confirm() {
  ConfermaModificheCategorie();
  return !isChanged();
}

void CategoriesPage::INAV_CATCLIART_ButtonClick(const std::string& button) {
  if (button == "Conferma") ConfermaModificheCategorie();
  if (button == "Annulla") LetturaDatiConfigurazioneCategorie();
}

void CategoriesPage::CaricaComboClientiArticoli() {
  procedure(context_, "CaricaComboClientiArticoli", [&](Procedure& p) {
    const std::int16_t none = 0;
    for (CategoryLevels* levels : {&customers_, &articles_}) {
      for (auto& level : levels->levels()) {
        level.classification.clear();
        p.step([&] { level.classification.addRow(none, context_.translate("Seleziona...")); });
      }
    }
    p.step([&] { catalogue_.open(context_); });
    addCatalogue(p);
    for (CategoryLevels* levels : {&customers_, &articles_}) {
      for (auto& level : levels->levels()) {
        for (const FixedClassification& fixed : levels->kind().fixed) {
          // Only the caption: the description that is proposed and stored stays Italian.
          p.step([&] {
            level.classification.addRow(fixed.code, context_.translate(std::string(fixed.caption)));
          });
        }
        level.classification.select(none);
      }
    }
  });
}

void CategoriesPage::addCatalogue(Procedure& p) {
  for (const auto& entry : p.step([&] { return catalogue_.entries(); })) {
    if (entry.entity == customerCategories.entity) {
      for (auto& level : customers_.levels()) {
        level.classification.addRow(entry.code, entry.description);
      }
    } else if (entry.entity == articleCategories.entity) {
      for (auto& level : articles_.levels()) {
        // Asked again for every combo, on purpose.
        if (isOffered(toInt32(CDecN(entry.code)), p)) {
          level.classification.addRow(entry.code, entry.description);
        }
      }
    }
  }
}

bool CategoriesPage::isOffered(std::int32_t articleClassification, Procedure& p) {
  const auto exists = [&](std::string (*statement)(const sql::Company&)) {
    return p.step(
        [&] { return !context_.connection->Execute(statement(context_.companyKey()))->EOF_(); });
  };
  switch (additionalCodeOf(articleClassification)) {
    case AdditionalCode::ConfigurationVariant:
      return exists(sql::EsisteVariante);
    case AdditionalCode::ArticleDimension:
      return exists(sql::EsisteDimensione);
    default:
      return true;
  }
}

void CategoriesPage::LetturaDatiConfigurazioneCategorie() {
  const bool isRead = procedure(context_, "LetturaDatiConfigurazioneCategorie", [&](Procedure& p) {
    customers_.clear();
    articles_.clear();
    loaded_.clear();
    clearChanged();
    showStored(p.read(sql::Categorie(p.profile())), p);
    return true;
  });
  // What was not read must not be confirmed: it would be deleted.
  if (!isRead) navigator_.setModified(false);
  if (isRead) context_.notices.remove(staleCause);
  load_.ended(isRead);
}

void CategoriesPage::showStored(const Ref<ado::Recordset>& rows, Procedure& p) {
  if (p.step([&] { return rows->EOF_(); })) {
    showDefaults();
    navigator_.setModified(true);
    return;
  }
  for (; p.more(rows); p.next(rows)) {
    p.step([&] {
      const StoredLevel stored = levelOf(*rows);
      loaded_[{stored.entity, stored.number}] = stored.content;
      for (CategoryLevels* levels : {&customers_, &articles_}) {
        if (stored.entity == levels->kind().entity) levels->show(stored.number, stored.content);
      }
    });
  }
  navigator_.setModified(false);
}

// Proposes what most companies publish; it is stored when the user confirms it.
void CategoriesPage::showDefaults() {
  const auto& fixed = articleCategories.fixed;
  for (std::int32_t level : {1, 2}) {
    const FixedClassification& proposed = fixed[static_cast<std::size_t>(level - 1)];
    articles_.show(level, {std::to_string(proposed.code), "", std::string(proposed.caption)});
  }
}

void CategoriesPage::ConfermaModificheCategorie() {
  procedure(context_, "ConfermaModificheCategorie", [&](Procedure& p) {
    if (equalAsVariants(context_.profileId(), std::int32_t{0})) {
      p.ask("Salvare prima il profilo di collegamento.", msgbox::information);
      return;
    }
    const Ref<ado::Recordset> rows = p.step([&] { return context_.newRecordset(); });
    p.step([&] {
      rows->setCursorLocation(ado::CursorLocation::Client);
      rows->Open(sql::Categorie(context_.profileKey()), context_.connection,
                 ado::CursorType::Static, ado::LockType::BatchOptimistic);
    });
    // Opening it failed and the user went on: nothing can be stored.
    if (!p.step([&] { return rows->isOpen(); })) return;
    if (!compareWithStored(rows, p)) return;
    store(customers_, rows, p);
    store(articles_, rows, p);
    p.step([&] { rows->setFilter(""); });
    p.step([&] { rows->UpdateBatch(); });
    if (GRP_CATART.isShown()) parameters_.storeCustomerNotes(p);
    // When the user ignored a failing batch, it is still to be stored.
    const bool isPending = rows->hasPendingBatch();
    navigator_.setModified(isPending);
    if (!isPending) showConfirmed();
  });
}

// A level that somebody else changed since it was loaded is not overwritten: it is kept when the
// user did not change it, too, and otherwise nothing is stored.
bool CategoriesPage::compareWithStored(const Ref<ado::Recordset>& rows, Procedure& p) {
  Contents now;
  for (; p.more(rows); p.next(rows)) {
    p.step([&] {
      const StoredLevel stored = levelOf(*rows);
      now[{stored.entity, stored.number}] = stored.content;
    });
  }
  changedElsewhere_.clear();
  if (now.empty() && !loaded_.empty()) {
    tellConflict(context_.translate("Categorie"), p);
    return false;
  }
  for (CategoryLevels* levels : {&customers_, &articles_}) {
    std::int32_t number = 0;
    for (const auto& level : levels->levels()) {
      const LevelKey key{levels->kind().entity, ++number};
      const auto before = contentIn(loaded_, key);
      const auto theirs = contentIn(now, key);
      const auto ours = CategoryLevels::contentOf(level);
      if (theirs == before || theirs == ours) continue;
      if (ours != before) {
        const bool isOfCustomers = levels == &customers_;
        tellConflict((isOfCustomers ? GRP_CATCLI : GRP_CATART).caption() + ", " +
                         level.classification.caption(),
                     p);
        return false;
      }
      changedElsewhere_[key] = theirs.value_or(CategoryLevels::Content{});
    }
  }
  return true;
}

void CategoriesPage::addChanges(PlannedChanges& changes) {
  if (equalAsVariants(context_.profileId(), std::int32_t{0})) {
    changes.note(context_.translate("Salvare prima il profilo di collegamento."));
    return;
  }
  for (const CategoryLevels* levels : {&customers_, &articles_}) {
    const controls::GroupBox& group = levels == &customers_ ? GRP_CATCLI : GRP_CATART;
    std::int32_t number = 0;
    for (const auto& level : levels->levels()) {
      const auto before = contentIn(loaded_, {levels->kind().entity, ++number});
      // A code below 0 is kept where it is stored, but not stored anew.
      if (!before && CategoryLevels::chosen(level) <= 0) continue;
      changes.add(group.caption() + ", " + level.classification.caption(), read(level, before),
                  read(level, CategoryLevels::contentOf(level)));
    }
  }
  if (GRP_CATART.isShown()) parameters_.addCustomerNotes(changes);
}

std::optional<ReadRow> CategoriesPage::read(
    const CategoryLevels::Level& level,
    const std::optional<CategoryLevels::Content>& content) const {
  if (!content) return std::nullopt;
  const std::string& code = content->classification;
  const std::string caption = level.classification.captionOf(code);
  return ReadRow{{context_.translate("Classificazione"), code, caption.empty() ? code : caption},
                 {level.code.caption(), content->code, content->code},
                 {level.description.caption(), content->description, content->description}};
}

std::optional<CategoryLevels::Content> CategoriesPage::contentIn(const Contents& contents,
                                                                 const LevelKey& key) {
  const auto at = contents.find(key);
  return at == contents.end() ? std::nullopt : std::optional(at->second);
}

void CategoriesPage::tellConflict(const std::string& what, Procedure& p) {
  p.step([&] {
    context_.services.showText(
        what + ": " +
            context_.translate("un altro utente ha modificato o eliminato questi dati nel "
                               "frattempo. Non è stato scritto nulla."),
        msgbox::exclamation);
  });
  context_.notices.show(
      {.cause = staleCause,
       .text = context_.translate("Le categorie mostrate non sono più quelle memorizzate."),
       .action = context_.translate("Ricarica"),
       .perform = [this] { LetturaDatiConfigurazioneCategorie(); }});
}

void CategoriesPage::showConfirmed() {
  loaded_.clear();
  for (CategoryLevels* levels : {&customers_, &articles_}) {
    std::int32_t number = 0;
    for (const auto& level : levels->levels()) {
      const LevelKey key{levels->kind().entity, ++number};
      const auto theirs = contentIn(changedElsewhere_, key);
      if (theirs) levels->show(number, *theirs);
      if (const auto content = CategoryLevels::contentOf(level)) loaded_[key] = *content;
    }
  }
  changedElsewhere_.clear();
  clearChanged();
}

void CategoriesPage::store(CategoryLevels& levels, const Ref<ado::Recordset>& rows, Procedure& p) {
  std::int16_t number = 0;
  for (const auto& level : levels.levels()) {
    ++number;
    const int entity = levels.kind().entity;
    if (changedElsewhere_.contains({entity, number})) continue;
    const std::int32_t chosen = CategoryLevels::chosen(level);
    p.step([&] { rows->setFilter(sql::FiltroCategoria(entity, number)); });
    const bool stored = p.more(rows);
    if (stored && chosen == 0) {
      p.step([&] { rows->Delete(); });
      continue;
    }
    if (!stored && chosen <= 0) continue;
    if (!stored) {
      p.step([&] { rows->AddNew(); });
      p.set(rows, "GM19_IDDISPOSITIVO_GM03", context_.profileId());
      p.set(rows, "GM19_PROG", number);
      p.set(rows, "GM19_INDENTITA", static_cast<std::int16_t>(entity));
    }
    p.set(rows, "GM19_INDCLASSIF", level.classification.text());
    p.set(rows, "GM19_CODCLASSIF", level.code.text());
    p.set(rows, "GM19_DESCRCLASSIF", level.description.text());
    p.step([&] { rows->Update(); });
  }
}

}  // namespace kebu::forms
