// Every view in one window without a database, to be looked at and worked in.
//   views_gallery [ROWS]            until it is closed
//   views_gallery cycles N          opens and closes it N times, prints the handles held
//   views_gallery measure ROWS...   prints the time of a first paint and of a page down, and the
//                                   memory that the form takes; the rows take none
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <memory>
#include <string>

#include "common/platform.h"
#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/form.h"
#include "controls/lookup_list.h"
#include "controls/mdi_container.h"
#include "controls/navigator_bar.h"
#include "controls/query_grid.h"
#include "tests/windows/million_rows.h"
#include "tests/windows/resources.h"
#include "windows/views/form/win32_desktop.h"
#include "windows/views/window/inspection.h"

namespace {

using namespace kebu;
using namespace kebu::controls;

class MessageBoxHost : public ControlHost {
 public:
  std::int16_t VisualizzaErrore(const std::string& procedure, const RuntimeError& error) override {
    MessageBoxA(GetActiveWindow(), error.what(), procedure.c_str(), MB_OK);
    return 3;
  }
  std::int32_t message(const std::string& text, std::int32_t style) override {
    return MessageBoxA(GetActiveWindow(), text.c_str(), "Galleria", static_cast<UINT>(style));
  }
};

constexpr ValueListItem kinds[] = {{0, "Nessuna"},
                                   {1, "Listino Anagrafico articolo"},
                                   {2, "Listino Articolo/Deposito"},
                                   {3, "Da Priorità"}};
constexpr GridColumn gridColumns[] = {
    {"CODE", "Codice", 1500, ColumnKind::Text},
    {"DESCR", "Descrizione", 3600, ColumnKind::Text},
    {"ACTIVE", "Attivo", 1200, ColumnKind::Check},
    {"KIND", "Tipologia listino", 2750, ColumnKind::ValueList, kinds, std::size(kinds)},
    {"QUANTITY", "Quantità", 1200, ColumnKind::Number},
    {"CODE2", "Deposito", 1500, ColumnKind::Lookup},
};

/// A dialog over the window: controls without a page.
class Dialog : public Form {
 public:
  explicit Dialog(Desktop& desktop) : Form("FRM_DIALOG", desktop) {
    setCaption("Selezione articoli");
    const auto same = [](const std::string& text) { return text; };
    for (const GridColumn& column : gridColumns) grid.addColumn(column, same);
    grid.setDataSource(Ref<ado::Recordset>(std::make_shared<windows::MadeUpRows>(500)));
    group.add(grid);
    group.add(filter);
    ok.ButtonClick.on([this] { Unload(); });
    Form::add(group);
    addAll(ok, cancel);
    cancel.ButtonClick.on([this] { Unload(); });
  }

  MessageBoxHost host;
  GroupBox group{"GRP_SEL", "Articoli"};
  EditBox filter{"TXT_FILTER", "Filtro"};
  QueryGrid grid{"QGRID_SEL", host};
  Button ok{"CMD_OK", "Conferma"};
  Button cancel{"CMD_CANCEL", "Annulla"};
};

class Gallery : public Form {
 public:
  Gallery(Desktop& desktop, std::int32_t rows) : Form("FRM_GALLERY", desktop) {
    setCaption("Galleria dei controlli");
    moveTo(100, 60);
    links.addLink(1, "Parametri");
    links.addLink(2, "Listini");
    links.addLink(3, "Depositi");
    links.selectFirst();
    title.setCaption("Parametri");
    const auto add = [&](GroupBox& group, const char* name, const char* caption,
                         std::size_t length = 0) -> EditBox& {
      EditBox& box = boxes.emplace_back(name, caption);
      box.setMaxLength(length);
      group.add(box);
      return box;
    };
    EditBox& id = add(profile, "TXT_ID", "Identificativo", 10);
    id.setText("1");
    id.setEditable(false);
    EditBox& code = add(profile, "TXT_CODE", "Codice", 6);
    code.setRequired(true);
    add(profile, "TXT_DESCR", "Descrizione", 60).setText("Merkal");
    add(profile, "TXT_NOTE", "Note");
    EditBox& document = add(import, "TXT_DOC", "Documento ordini web");
    document.setDescription(documentText);
    document.StartDecode.on(
        [](const std::string& c, std::string& d) { d = "Ordine cliente " + c; });
    document.StartLookup.on([this](EditBox& box) {
      LookupList list("Elenco documenti", {"Documento", "Descrizione"},
                      Ref<ado::Recordset>(std::make_shared<windows::MadeUpRows>(5000)));
      this->desktop().runLookup(list);
      if (list.chosen()) box.enter(*list.chosen());
    });
    import.add(documentText);
    for (int i = 0; i < 4; ++i) combo.addRow(i, std::string(kinds[i].caption));
    combo.select(std::int32_t{1});
    import.add(combo);
    publication.addAll(active, images);
    images.setEnabled(false);
    add(publication, "TXT_SYNC", "Ultima sincronizzazione clienti").setEditable(false);
    add(transfer, "TXT_FTP", "Indirizzo server", 255).setText("ftp.example.it");
    EditBox& password = add(transfer, "TXT_PWD", "Password", 255);
    password.setMasked(true);
    boxes.back().setText("segreto");
    add(transfer, "TXT_EXP", "Cartella esportazione", 255);
    add(transfer, "TXT_IMP", "Cartella importazione", 255);
    pageOne.addAll(profile, import, publication, transfer);

    const auto same = [](const std::string& text) { return text; };
    grid.setRowStateField("STATO");
    for (const GridColumn& column : gridColumns) grid.addColumn(column, same);
    grid.cellLocked = [this](std::int32_t row, const std::string& field) {
      return field == "QUANTITY" && toInt(grid.cell(row, "KIND")) == 0;
    };
    grid.StartLookup.on([this](const std::string&, Value& chosen) {
      LookupList list("Elenco depositi", {"Deposito", "Descrizione"},
                      Ref<ado::Recordset>(std::make_shared<windows::MadeUpRows>(300)));
      this->desktop().runLookup(list);
      if (list.chosen()) chosen = *list.chosen();
    });
    grid.setDataSource(Ref<ado::Recordset>(std::make_shared<windows::MadeUpRows>(rows)));
    lists.add(grid);
    update.add(go);
    go.ButtonClick.on([this] {
      progress.setText("Aggiornamento in corso...");
      progress.start();
      for (int i = 0; i < 40; ++i) {
        this->desktop().repaint();
        Sleep(50);
      }
      progress.stop();
    });
    pageTwo.addAll(lists, update);
    smallGroup.add(small);
    small.addColumn(gridColumns[0], same);
    small.addColumn(gridColumns[1], same);
    small.setDataSource(Ref<ado::Recordset>(std::make_shared<windows::MadeUpRows>(12)));
    pageThree.addAll(smallGroup, note, refresh);
    resizing.registerControl("CMD_REFRESH", 6);

    bar.setButtonEnabled("Conferma", true);
    bar.setButtonEnabled("Annulla", true);
    bar.ButtonClick.on([this](bool&, const std::string& key) { status.setPanelText(2, key); });
    links.OnClickItemLink.on([this](const SideBar::Link& link) { openPage(link.view); });
    refresh.ButtonClick.on([this] {
      std::make_shared<Dialog>(this->desktop())->Show(true);
      status.setPanelText(2, "Finestra chiusa");
    });
    status.setPanelText(1, "Ditta 1");
    addAll(links, title, bar);
    for (GroupBox* page : {&pageOne, &pageTwo, &pageThree}) Form::add(*page);
    addAll(status, progress, resizing, container);
    openPage(1);
  }

  void openPage(std::int32_t view) {
    links.select(view);
    title.setCaption(links.selected()->text);
    pageOne.setVisible(view == 1);
    pageTwo.setVisible(view == 2);
    pageThree.setVisible(view == 3);
  }

  static int toInt(const Value& value) {
    return value.holds<std::int32_t>() ? value.as<std::int32_t>() : 0;
  }

  MessageBoxHost host;
  SideBar links{"SBAR_MAIN"};
  TitleBar title{"TITLEBAR"};
  NavigatorBar bar{"INAV_PAR", host, {"Nuovo", "Conferma", "Annulla", "Elimina"}};
  GroupBox pageOne{"PAGE1"}, pageTwo{"PAGE2"}, pageThree{"PAGE3"};
  GroupBox profile{"GRP_PROFILO", "Profilo di collegamento"};
  GroupBox import{"GRP_IMPDOC", "Importazione documenti"};
  GroupBox publication{"GRP_PUB", "Pubblicazione"};
  GroupBox transfer{"GRP_FTP", "Trasferimento"};
  GroupBox lists{"GRP_LISTINI", "Listini da pubblicare"};
  GroupBox update{"GRP_AGG", "Aggiornamento prezzi"};
  GroupBox smallGroup{"GRP_SMALL", "Depositi da pubblicare"};
  std::deque<EditBox> boxes;
  Label documentText{"LBL_DOC"};
  ComboBox combo{"CMB_KIND", "Deposito documenti"};
  CheckBox active{"CHK_ACTIVE", "Gestione prezzi"};
  CheckBox images{"CHK_IMG", "Estrazione immagini"};
  QueryGrid grid{"QGRID", host};
  QueryGrid small{"QGRID_SMALL", host};
  Button go{"BTN_GO", "Aggiorna prezzi"};
  Label note{"LBL_NOTE", "Ultimo aggiornamento: 05/03/2024"};
  Button refresh{"CMD_REFRESH", "Aggiorna"};
  StatusBar status{"STATUSBAR", 2};
  ProgressBar progress{"PBAR"};
  ResizeManager resizing{"VLT_RESIZEFORM1"};
  MdiContainer container{"MDIActiveX1"};
};

void pump(const Form& form) {
  MSG message{};
  while (form.isLoaded() && GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void pumpWaiting() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

/// The system's counts, and the numbers that the next objects get: where the
/// system does not count, these grow with what is not given back.
void tellHandles(int cycles) {
  HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
  HWND window =
      CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
  std::printf("after %d: GDI %lu USER %lu, next brush %u, next window %u\n", cycles,
              GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS),
              GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS),
              LOWORD(reinterpret_cast<UINT_PTR>(brush)),
              LOWORD(reinterpret_cast<UINT_PTR>(window)));
  DestroyWindow(window);
  DeleteObject(brush);
}

void cycle(Desktop& desktop, int times) {
  for (int i = 0; i <= times; ++i) {
    auto form = std::make_shared<Gallery>(desktop, 1000);
    form->Show(false);
    for (const std::int32_t view : {2, 3, 1}) {
      form->openPage(view);
      desktop.repaint();
      pumpWaiting();
    }
    form->Unload();
    form.reset();
    pumpWaiting();
    if (i == 5 || i == times) tellHandles(i);
  }
}

double milliseconds(LARGE_INTEGER from, LARGE_INTEGER to) {
  LARGE_INTEGER frequency;
  QueryPerformanceFrequency(&frequency);
  return 1000.0 * static_cast<double>(to.QuadPart - from.QuadPart) /
         static_cast<double>(frequency.QuadPart);
}

void measure(Desktop& desktop, std::int32_t rows) {
  const std::size_t bytesBefore = tests::usedResources().bytes;
  auto form = std::make_shared<Gallery>(desktop, rows);
  form->Show(false);
  pumpWaiting();
  LARGE_INTEGER start, painted, paged;
  QueryPerformanceCounter(&start);
  form->openPage(2);
  desktop.repaint();
  QueryPerformanceCounter(&painted);
  windows::Inspection asked;
  wcscpy(asked.control, L"QGRID");
  SendMessageW(GetActiveWindow(), windows::inspectMessage(), 0, reinterpret_cast<LPARAM>(&asked));
  for (int i = 0; i < 20; ++i) {
    SendMessageW(asked.window, WM_KEYDOWN, VK_NEXT, 0);
    desktop.repaint();
  }
  QueryPerformanceCounter(&paged);
  const std::size_t bytes = tests::usedResources().bytes - bytesBefore;
  std::printf("%d rows: first paint %.1f ms, page down %.2f ms (row %d), %zu KB\n", rows,
              milliseconds(start, painted), milliseconds(painted, paged) / 20,
              form->grid.currentRow(), bytes / 1024);
  form->Unload();
}

}  // namespace

int main(int count, char** arguments) {
  setvbuf(stdout, nullptr, _IONBF, 0);
  const std::string what = count > 1 ? arguments[1] : "";
  windows::Win32Desktop desktop(GetModuleHandleW(nullptr));
  if (what == "cycles") {
    cycle(desktop, std::atoi(arguments[2]));
  } else if (what == "measure") {
    for (int i = 2; i < count; ++i) measure(desktop, std::atoi(arguments[i]));
  } else {
    auto form = std::make_shared<Gallery>(desktop, what.empty() ? 1000 : std::atoi(what.c_str()));
    form->Show(false);
    pump(*form);
  }
  return 0;
}
