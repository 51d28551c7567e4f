#include "ProductWindow.h"

#include <windows.h>
#include <commctrl.h>

#include <iterator>

#include "BenchTexts.h"
#include "RequestTarget.h"
#include "Resource.h"

namespace {

struct Window {
    const std::string& address;
    const std::wstring title;
    const std::vector<Product>& products;
    std::string exported;
};

struct Column {
    const char* title;
    std::string Product::*text;
    int width;  // share of the list's width in percent
    int format;
};

const Column kColumns[] = {{"Product", &Product::code, 27, LVCFMT_LEFT},
                           {"Length (mm)", &Product::length, 17, LVCFMT_RIGHT},
                           {"Pressure drop (Pa)", &Product::pressureDrop, 24, LVCFMT_RIGHT},
                           {"Attenuation 250 Hz (dB)", &Product::attenuation250, 32, LVCFMT_RIGHT}};

// "Silencers for a round duct, 200 mm, 120 l/s"
std::string DuctText(const std::string& address) {
    const bench::RequestTarget asked = bench::ParseRequestTarget(address);
    const std::string diameter = asked.Value("diameter");
    std::string text = diameter.empty() ? "Silencers for a rectangular duct, " + asked.Value("width") + " x " +
                                              asked.Value("height") + " mm"
                                        : "Silencers for a round duct, " + diameter + " mm";
    const std::string airflow = asked.Value("airflow");
    if (!airflow.empty()) text += ", " + airflow + " l/s";
    return text;
}

void SetRow(HWND list, int row, const Product& product) {
    LVITEMA item = {};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    for (int column = 0; column < static_cast<int>(std::size(kColumns)); ++column) {
        std::string text = product.*kColumns[column].text;
        item.iSubItem = column;
        item.pszText = text.data();
        const UINT message = column == 0 ? LVM_INSERTITEMA : LVM_SETITEMA;
        SendMessageA(list, message, 0, reinterpret_cast<LPARAM>(&item));
    }
}

void FillList(HWND list, const std::vector<Product>& products) {
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    RECT area;
    GetClientRect(list, &area);
    for (int i = 0; i < static_cast<int>(std::size(kColumns)); ++i) {
        std::string title = kColumns[i].title;
        LVCOLUMNA column = {};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
        column.fmt = kColumns[i].format;
        column.cx = area.right * kColumns[i].width / 100;
        column.pszText = title.data();
        SendMessageA(list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
    }
    for (size_t row = 0; row < products.size(); ++row)
        SetRow(list, static_cast<int>(row), products[row]);
    ListView_SetItemState(list, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

void Open(HWND dialog, const Window& window) {
    SetWindowTextW(dialog, window.title.c_str());
    SetDlgItemTextA(dialog, IDC_DUCT,
                    window.products.empty() ? "No silencer fits this duct." : DuctText(window.address).c_str());
    FillList(GetDlgItem(dialog, IDC_PRODUCTS), window.products);
    EnableWindow(GetDlgItem(dialog, IDOK), !window.products.empty());
    SetFocus(GetDlgItem(dialog, window.products.empty() ? IDCANCEL : IDC_PRODUCTS));
    ShowWindow(dialog, SW_SHOW);
    SetForegroundWindow(dialog);
}

void Export(HWND dialog, Window& window) {
    const int row = ListView_GetNextItem(GetDlgItem(dialog, IDC_PRODUCTS), -1, LVNI_SELECTED);
    if (row < 0) return;
    const std::string& id = window.products[static_cast<size_t>(row)].id;
    std::string error;
    if (PublishChoice(window.address, id, error)) {
        window.exported = id;
        EndDialog(dialog, IDOK);
        return;
    }
    MessageBoxW(dialog, bench::FromUtf8(error).c_str(), window.title.c_str(), MB_OK | MB_ICONERROR);
}

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = reinterpret_cast<Window*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
    switch (message) {
        case WM_INITDIALOG:
            SetWindowLongPtrW(dialog, GWLP_USERDATA, lParam);
            Open(dialog, *reinterpret_cast<Window*>(lParam));
            return FALSE;
        case WM_COMMAND:
            if (LOWORD(wParam) == IDOK) Export(dialog, *window);
            if (LOWORD(wParam) == IDCANCEL) EndDialog(dialog, IDCANCEL);
            return TRUE;
        case WM_NOTIFY: {
            const NMITEMACTIVATE* notice = reinterpret_cast<const NMITEMACTIVATE*>(lParam);
            if (notice->hdr.idFrom != IDC_PRODUCTS || notice->hdr.code != static_cast<UINT>(NM_DBLCLK)) return FALSE;
            if (notice->iItem >= 0) Export(dialog, *window);
            return TRUE;
        }
        default:
            return FALSE;
    }
}

}  // namespace

std::string AskForProduct(const std::string& address, const std::string& title, const std::vector<Product>& products) {
    const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    Window window{address, bench::FromUtf8(title), products, {}};
    DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_PRODUCTS), nullptr, Procedure,
                    reinterpret_cast<LPARAM>(&window));
    return window.exported;
}
