#include "forms/anagrafica/categories/category_levels.h"

#include <optional>

#include "common/convert.h"
#include "common/nulls.h"
#include "common/platform.h"
#include "forms/procedure.h"
#include "sql/categories.h"

namespace kebu::forms {

namespace {

constexpr std::size_t longestCode = 20;
constexpr std::size_t longestDescription = 60;

std::string element(std::string_view array, int index) {
  return std::string(array) + "(" + std::to_string(index) + ")";
}

void clearBoxes(CategoryLevels::Level& level) {
  level.code.setText("");
  level.description.setText("");
}

/// The text as a number by the user's locale; nothing when it is none.
std::optional<Decimal> numberOf(const std::string& text) {
  std::optional<Decimal> number;
  ignoringErrors([&] { number = toDecimal(CDecN(text)); });
  return number;
}

host::LookupDefinition articleDimensions(const sql::Company& company) {
  return {.title = "Elenco parametri composizione articolo",
          .statement = sql::ElencoDimensioni(company),
          .captions = {"Progressivo", "Descrizione", "Dimensione"},
          .key = "Lkp_ComposizioneArticolo"};
}

}  // namespace

CategoryLevels::Level::Level(const CategoryKind& kind, int index)
    : classification(element(kind.combos, index), "Livello " + std::to_string(index + 1)),
      code(element(kind.codes, index), "Codice aggiuntivo"),
      description(element(kind.descriptions, index), "Descrizione") {
  classification.setShowsCodes(false);
  code.setMaxLength(longestCode);
  description.setMaxLength(longestDescription);
}

CategoryLevels::CategoryLevels(const CategoryKind& kind, PageContext& context,
                               ClassificationCatalogue& catalogue, std::function<void()> modified)
    : kind_(kind), context_(context), catalogue_(catalogue), modified_(std::move(modified)) {
  for (int i = 0; i < kind.levels; ++i) handleEvents(levels_.emplace_back(kind, i));
}

void CategoryLevels::handleEvents(Level& level) {
  level.classification.GotFocus.on([this, &level] {
    classificationBefore_ = level.classification.text();
    const auto* const entry = level.classification.selected();
    captionBefore_ = entry ? entry->caption : "";
  });
  level.classification.AfterItem.on([this, &level] { AfterItem(level); });
  level.classification.ChangeRow.on([this, &level] { ChangeRow(level); });
  for (controls::EditBox* box : {&level.code, &level.description}) {
    box->BeforeItem.on([this, &level](const std::string& text, bool& cancel) {
      cancel = cancel || !confirmText(level, text);
    });
  }
  level.code.AfterItem.on([this] { modified_(); });
  level.description.AfterItem.on([this] { modified_(); });
  if (kind_.entity == articleCategories.entity) {
    level.code.GotFocus.on([this, &level] { codeBefore_ = level.code.text(); });
    level.code.LostFocus.on([this, &level] { TXT_COD_ART_AZ_LostFocus(level); });
    level.code.StartLookup.on([this, &level](controls::EditBox&) { lookUpCode(level); });
  }
}

bool CategoryLevels::confirmText(const Level& level, const std::string& text) {
  if (text.empty() || chosen(level) != 0) return context_.services.confirmKept(text);
  context_.services.message(
      "Scegliere prima la classificazione: senza di essa il livello non viene memorizzato.",
      msgbox::exclamation);
  return false;
}

void CategoryLevels::place(controls::GroupBox& group) {
  for (Level& level : levels_) group.addAll(level.classification, level.code, level.description);
}

void CategoryLevels::clear() {
  for (Level& level : levels_) {
    level.classification.setText("");
    clearBoxes(level);
  }
}

void CategoryLevels::show(std::int32_t level, const Content& content) {
  if (level < 1 || level > kind_.levels) return;
  Level& shown = levels_[static_cast<std::size_t>(level - 1)];
  shown.classification.setText(content.classification);
  shown.code.setText(content.code);
  shown.description.setText(content.description);
}

std::int32_t CategoryLevels::chosen(const Level& level) {
  return toInt32(CDecN(level.classification.value()));
}

std::optional<CategoryLevels::Content> CategoryLevels::contentOf(const Level& level) {
  if (chosen(level) == 0) return std::nullopt;
  return Content{RTrimN(level.classification.text()), RTrimN(level.code.text()),
                 RTrimN(level.description.text())};
}

void CategoryLevels::AfterItem(Level& level) {
  procedure(context_, comboEvent("_AfterItem"), [&](Procedure& p) {
    const std::string text = level.classification.text();
    if (text == classificationBefore_) return;
    if (kind_.choiceClearsBoxes) clearBoxes(level);
    if (chosen(level) == 0) {
      clearBoxes(level);
    } else {
      const auto found = p.step([&] { return catalogue_.find(kind_.entity, text); });
      if (!found) {
        clearBoxes(level);
        for (const FixedClassification& fixed : kind_.fixed) {
          if (fixed.code == chosen(level)) level.description.setText(std::string(fixed.caption));
        }
      } else if (found->takesCode) {
        level.code.setText("");
        const std::string& description = level.description.text();
        const auto* const entry = level.classification.selected();
        // A description that was proposed for the entry before is replaced, another one stays.
        if (description.empty() || (entry && description == entry->caption) ||
            description == captionBefore_) {
          level.description.setText(found->description);
        }
      } else {
        // The catalogue's description is not proposed here, on purpose.
        level.description.setText("");
      }
    }
    modified_();
  });
}

void CategoryLevels::ChangeRow(Level& level) {
  procedure(context_, comboEvent("_ChangeRow"), [&](Procedure& p) {
    bool takesCode = false;
    if (chosen(level) != 0) {
      const auto found =
          p.step([&] { return catalogue_.find(kind_.entity, level.classification.text()); });
      takesCode = found && found->takesCode;
    }
    level.code.setEnabled(takesCode);
  });
}

void CategoryLevels::TXT_COD_ART_AZ_LostFocus(Level& level) {
  procedure(context_, "TXT_COD_ART_AZ_LostFocus", [&](Procedure& p) {
    const std::string code = level.code.text();
    const AdditionalCode kind = additionalCodeOf(chosen(level));
    if (code == codeBefore_ || kind == AdditionalCode::None) return;
    const std::optional<Decimal> number = numberOf(code);
    if (!number) {
      p.step([&] {
        const std::string text = context_.translate("Valore non valido: ") + "\"" + code + "\".";
        context_.services.showText(text, msgbox::exclamation);
      });
      level.code.setText(codeBefore_);
      return;
    }
    codeBefore_ = code;
    if (*number <= Decimal(0)) {
      level.description.setText("");
    } else if (kind == AdditionalCode::ConfigurationVariant) {
      level.description.setText(
          p.lookUpText(sql::DecodificaVariante(p.company(), code), "MG5F_DESCR_VAR"));
    } else {
      level.description.setText(
          p.lookUpText(sql::DecodificaDimensione(p.company(), toSqlNumber(*number)), "MG6F_DESCR"));
    }
    modified_();
  });
}

void CategoryLevels::lookUpCode(Level& level) {
  procedure(context_, "TXT_COD_ART_AZ_StartLookup", [&](Procedure& p) {
    const AdditionalCode kind = additionalCodeOf(chosen(level));
    if (kind == AdditionalCode::None) return;
    const auto code = p.choose(kind == AdditionalCode::ConfigurationVariant
                                   ? p.step([&] { return configuratorVariants(); })
                                   : articleDimensions(p.company()),
                               level.code.text());
    if (!code) return;
    codeBefore_ = level.code.text();
    p.step([&] { level.code.enter(*code); });
    TXT_COD_ART_AZ_LostFocus(level);
  });
}

host::LookupDefinition CategoryLevels::configuratorVariants() const {
  return context_.hostServices.lookups->Configurator(context_.companyKey().text);
}

}  // namespace kebu::forms
