#include "text/own_texts.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "text/rc.h"

namespace zu {
namespace {

struct Tentry {
  own_text which;
  wchar_t const* english;
  wchar_t const* russian;
};

constexpr auto entries = std::to_array<Tentry>({
    {own_text::no_catalogue,
     L"The catalogue of projections, datums and ellipsoids is missing. None of these folders is "
     L"there:",
     L"Нет каталога проекций, датумов и эллипсоидов. Ни одной из этих папок нет:"},
    {own_text::type_a_point, L"Type \".\" before the decimals, not \",\".",
     L"Дробную часть отделяйте точкой \".\", а не запятой."},
    {own_text::text_before, L"%1: text before the first \"+\" is not read",
     L"%1: текст перед первым \"+\" не читается"},
    {own_text::unknown_key, L"%1: this key is not read", L"%1: этот ключ не читается"},
    {own_text::repeated_key, L"%1: given twice, this one is not read",
     L"%1: задано дважды, это значение не читается"},
    {own_text::unread_value, L"%1: the value cannot be read", L"%1: значение не читается"},
    {own_text::unread_tail, L"%1: only %2 is read", L"%1: читается только %2"},
    {own_text::eighth_number, L"%1: only the first seven numbers are read",
     L"%1: читаются только первые семь чисел"},
    {own_text::changed_number, L"%1: is written as %2, which is read as another number",
     L"%1: записывается как %2 и затем читается как другое число"},
    {own_text::sphere_shift, L"%1: a sphere is written without its datum shift",
     L"%1: сфера записывается без сдвига датума"},
    {own_text::other_lon_wrap, L"%1: +lon_wrap=45 is written instead",
     L"%1: вместо этого записывается +lon_wrap=45"},
    {own_text::other_count, L"%1: three or seven numbers are wanted, zeros stand for the others",
     L"%1: нужно три или семь чисел, вместо недостающих берутся нули"},
    {own_text::damaged_catalogue, L"The catalogue in %1 is not whole:",
     L"Каталог в папке %1 неполон:"},
    {own_text::table_not_opened, L"%1 cannot be opened", L"%1 не открывается"},
    {own_text::column_missing, L"%1 has no column %2", L"в %1 нет столбца %2"},
    {own_text::load_no_file, L"Load failed: there is no file %1", L"Не загружено: нет файла %1"},
    {own_text::load_unreadable, L"Load failed: %1 cannot be read",
     L"Не загружено: файл %1 не читается"},
    {own_text::load_no_definition, L"Load failed: there is no PROJ.4 definition in %1",
     L"Не загружено: в файле %1 нет определения PROJ.4"},
    {own_text::load_no_wkt, L"Load failed: there is no ESRI WKT in %1",
     L"Не загружено: в файле %1 нет ESRI WKT"},
    {own_text::save_unwritten, L"Save failed: %1 cannot be written",
     L"Не сохранено: файл %1 не записывается"},
    {own_text::save_unconverted, L"Save failed: the definition cannot be converted to ESRI WKT",
     L"Не сохранено: определение не переводится в ESRI WKT"},
    {own_text::saved_as, L"Saved as %1", L"Сохранено под именем %1"},
    {own_text::returns_empty, L"Unknown: Apply returns an empty definition",
     L"Не определена: \"Применить\" вернёт пустое определение"},
    {own_text::returns_empty_instead, L"Unknown: Apply returns an empty definition in place of %1",
     L"Не определена: \"Применить\" вернёт пустое определение вместо %1"},
    {own_text::not_kept, L"Not all of the definition is kept:",
     L"Определение сохраняется не полностью:"},
    {own_text::not_in_catalogue, L"%1: not in the catalogue", L"%1: нет в каталоге"},
    {own_text::other_ellipsoid, L"%1: not in the catalogue, %2 is taken",
     L"%1: нет в каталоге, взят %2"},
    {own_text::grids_not_kept, L"%1: shift grids are not kept",
     L"%1: сетки сдвигов не сохраняются"},
    {own_text::least_distance, L"least distance: %1 m at %2",
     L"наименьшее расстояние: %1 м в точке %2"},
    {own_text::most_distance, L"largest distance: %1 m at %2",
     L"наибольшее расстояние: %1 м в точке %2"},
    {own_text::no_operation, L"PROJ does not transform coordinates of it: %1",
     L"PROJ не преобразует координаты этой системы: %1"},
    {own_text::out_of_limits, L"%1 is outside of the limits of the catalogue, %2",
     L"%1: вне пределов каталога, %2"},
    {own_text::apply_empties, L"the dialog cannot hold it: Apply returns an empty definition",
     L"диалог не вмещает эту систему: \"Применить\" вернёт пустое определение"},
    {own_text::apply_changes, L"Apply in the dialog returns %1",
     L"\"Применить\" в диалоге вернёт %1"},
    {own_text::apply_moves, L"after Apply in the dialog points move by up to %1 m, at %2",
     L"после \"Применить\" точки смещаются до %1 м, в точке %2"},
    {own_text::prj_refused, L"no .prj file can be written: ESRI WKT has no such system",
     L"файл .prj записать нельзя: в ESRI WKT такой системы нет"},
    {own_text::prj_changes, L"a .prj file comes back as %1", L"файл .prj читается как %1"},
    {own_text::prj_moves, L"by way of a .prj file points move by up to %1 m, at %2",
     L"после записи в .prj и чтения точки смещаются до %1 м, в точке %2"},
    {own_text::pulkovo_added,
     L"No datum shift is given: the dialog adds the seven numbers of PULKOVO_1942",
     L"Сдвиг датума не задан: диалог добавляет семь параметров PULKOVO_1942"},
    {own_text::zeros_added, L"No datum shift is given: the dialog adds zeros, which claim WGS 84",
     L"Сдвиг датума не задан: диалог добавляет нули, то есть WGS 84"},
    {own_text::name_taken, L"PROJ has no system of just this name and takes %1",
     L"Точно такого имени у PROJ нет, взята система %1"},
    {own_text::known_as, L"Known system = %1", L"Известная система = %1"},
    {own_text::likely_code, L"Found by PROJ = %1 (%2 of 100)", L"Найдена PROJ = %1 (%2 из 100)"},
    {own_text::paste_nothing, L"Nothing was pasted: there is no text", L"Не вставлено: нет текста"},
    {own_text::paste_unreadable, L"Nothing was pasted: this is no coordinate system: %1",
     L"Не вставлено: это не система координат: %1"},
    {own_text::paste_not_shown, L"Nothing was pasted: the catalogue has no such projection: %1",
     L"Не вставлено: такой проекции нет в каталоге: %1"},
    {own_text::unit_degrees, L"degrees", L"градусы"},
    {own_text::unit_metres, L"metres", L"метры"},
    {own_text::unit_seconds, L"arc-seconds", L"угловые секунды"},
    {own_text::unit_millionths, L"ppm", L"миллионные доли"},
    {own_text::unit_ratio, L"a ratio", L"отношение"},
    {own_text::limits_between, L"%1 to %2", L"от %1 до %2"},
    {own_text::limit_low, L"from %1", L"от %1"},
    {own_text::limit_high, L"to %1", L"до %1"},
    {own_text::fixed_by_datum, L"Given by the datum %1; choose _Custom to edit",
     L"Задано датумом %1; для правки выберите _Custom"},
    {own_text::result_name, L"Definition that Apply gives",
     L"Определение, которое вернёт \"Применить\""},
    {own_text::undo, L"Undo", L"Назад"},
    {own_text::redo, L"Redo", L"Вперёд"},
    {own_text::more, L"More...", L"Ещё..."},
    {own_text::copy_definition, L"Copy the definition\tCtrl+Shift+C",
     L"Копировать определение\tCtrl+Shift+C"},
    {own_text::copy_esri, L"Copy as ESRI WKT", L"Копировать как ESRI WKT"},
    {own_text::copy_unconverted, L"Not copied: the definition cannot be converted to ESRI WKT",
     L"Не скопировано: определение не переводится в ESRI WKT"},
    {own_text::paste_system, L"Paste a coordinate system\tCtrl+Shift+V",
     L"Вставить систему координат\tCtrl+Shift+V"},
    {own_text::find_system, L"Find a system...\tCtrl+F", L"Найти систему...\tCtrl+F"},
    {own_text::find_title, L"Find a system", L"Найти систему"},
    {own_text::find_hint, L"Name, code, region", L"Название, код, регион"},
    {own_text::find_words, L"Search words", L"Слова для поиска"},
    {own_text::find_list, L"Systems found", L"Найденные системы"},
    {own_text::find_details, L"The chosen system", L"Выбранная система"},
    {own_text::find_deprecated, L"Deprecated, too", L"И устаревшие"},
    {own_text::find_take, L"Take", L"Взять"},
    {own_text::find_nothing, L"Nothing was found.", L"Ничего не найдено."},
    {own_text::no_definition, L"Its numbers are not published: there is no definition.",
     L"Её параметры не опубликованы: определения нет."},
    {own_text::area_box, L"Longitudes %1, latitudes %2", L"Долготы %1, широты %2"},
    {own_text::deprecated, L"Deprecated", L"Устарела"},
    {own_text::try_point, L"Try a point...\tCtrl+T", L"Проверить точку...\tCtrl+T"},
    {own_text::trial_title, L"Try a point", L"Проверить точку"},
    {own_text::trial_longitude, L"WGS 84 longitude", L"Долгота WGS 84"},
    {own_text::trial_latitude, L"WGS 84 latitude", L"Широта WGS 84"},
    {own_text::trial_x, L"x (east)", L"x (на восток)"},
    {own_text::trial_y, L"y (north)", L"y (на север)"},
    {own_text::trial_own_longitude, L"Longitude", L"Долгота"},
    {own_text::trial_own_latitude, L"Latitude", L"Широта"},
    {own_text::trial_hint, L"Type two numbers on either side: 37.5 or 37 30 00",
     L"Введите два числа с любой стороны: 37.5 или 37 30 00"},
    {own_text::trial_close, L"Close", L"Закрыть"},
    {own_text::no_transformation, L"PROJ makes no transformation of this definition",
     L"PROJ не может преобразовать координаты этой системы"},
    {own_text::point_refused, L"PROJ: %1", L"PROJ: %1"},
});

constexpr bool is_in_order() {
  for (std::size_t i = 0; i < entries.size(); ++i)
    if (static_cast<std::size_t>(entries.at(i).which) != i) return false;
  return true;
}
static_assert(is_in_order());

}  // namespace

wchar_t const* get_own_text(own_text which) {
  Tentry const& entry = entries.at(static_cast<std::size_t>(which));
  return Tzu_rc::is_russian() ? entry.russian : entry.english;
}

std::wstring fill_own_text(own_text which, std::wstring_view first, std::wstring_view second) {
  constexpr std::size_t longest = 200;
  std::wstring text;
  for (std::wstring_view rest = get_own_text(which); !rest.empty();) {
    auto const mark = std::min(rest.find(L'%'), rest.size());
    text.append(rest.substr(0, mark));
    rest.remove_prefix(mark);
    if (rest.size() < 2) break;
    std::wstring_view const value = rest[1] == L'1' ? first : second;
    text.append(value.substr(0, longest)).append(value.size() > longest ? L"..." : L"");
    rest.remove_prefix(2);
  }
  return text;
}

}  // namespace zu
