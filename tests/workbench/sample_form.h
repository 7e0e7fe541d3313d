#pragma once

#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/form.h"
#include "controls/navigator_bar.h"
#include "controls/simple_controls.h"

namespace kebu::workbench {

/// The host that the controls need. No error is expected here.
class SilentControlHost : public controls::ControlHost {
 public:
  std::int16_t VisualizzaErrore(const std::string& /*procedure*/,
                                const RuntimeError& error) override {
    throw error;
  }
  std::int32_t message(const std::string& /*text*/, std::int32_t /*style*/) override {
    return msgbox::ok;
  }
};

/// A window with a control of each kind that needs no database.
class SampleForm : public controls::Form {
 public:
  explicit SampleForm(controls::Desktop& desktop) : Form("FRM_SAMPLE", desktop) {
    setCaption("Esempio");
    combo.addRow(std::int16_t{0}, "Effettiva");
    combo.addRow(std::int16_t{2}, "Disponibile");
    combo.select(std::int16_t{2});
    box.setText("010");
    password.setText("segreto");
    password.setMasked(true);
    password.setEditable(false);
    group.addAll(box, password, combo, check);
    links.addLink(1, "Parametri");
    links.addLink(2, "Listini");
    links.selectFirst();
    status.setPanelText(2, "Pronto");
    bar.setRights({true, true, true});
    bar.setButtonEnabled("Conferma", true);
    links.OnClickItemLink.on([this](const controls::SideBar::Link& link) { page = link.view; });
    bar.ButtonClick.on([this](bool&, const std::string& key) { pressed = key; });
    button.ButtonClick.on([this] { ++clicks; });
    add(links);
    addPage(group);
    addAll(hiddenLabel, button, bar, status);
    hiddenLabel.setVisible(false);
  }

  SilentControlHost host;
  controls::SideBar links{"SBAR_MAIN"};
  controls::GroupBox group{"GRP_BOXES", "Dati"};
  controls::EditBox box{"TXT_CODE", "Codice"};
  controls::EditBox password{"TXT_PWD", "Password"};
  controls::ComboBox combo{"CMB_KIND", "Tipo"};
  controls::CheckBox check{"CHK_FLAG", "Attivo"};
  controls::Label hiddenLabel{"LBL_HIDDEN", "Nascosto"};
  controls::Button button{"BTN_GO", "Aggiorna"};
  controls::NavigatorBar bar{"INAV_MAIN", host, {"Conferma", "Annulla"}};
  controls::StatusBar status{"STATUSBAR", 2};

  std::int32_t page = 0;
  std::string pressed;
  int clicks = 0;
};

}  // namespace kebu::workbench
