#include "text/rc_strings.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>

#include "text/rc.h"

namespace zu {
namespace {

// Russian texts are written in readable UTF-8 here. The compiler converts them to code page
// 1251: ASCII stays as it is, the letters are in two ranges.
template <std::size_t Size>
struct cp1251_text {
  // A literal operator's template parameter is made from an array, implicitly.
  // NOLINTNEXTLINE(google-explicit-constructor,modernize-avoid-c-arrays)
  consteval cp1251_text(char8_t const (&text)[Size]) {
    std::size_t length = 0;
    for (std::size_t i = 0; i + 1 < Size; ++i) {
      unsigned code = static_cast<unsigned char>(text[i]);
      if (code >= 0x80U)
        code = ((code & 0x1FU) << 6U) | (static_cast<unsigned char>(text[++i]) & 0x3FU);
      bytes[length++] = static_cast<char>(code < 0x80U ? code : letter(code));
    }
  }

  static consteval unsigned letter(unsigned code) {
    if (code == 0x401U) return 0xA8U;  // capital IO
    if (code == 0x451U) return 0xB8U;  // small io
    if (code < 0x410U || code > 0x44FU)
      throw std::invalid_argument("no letter of the Russian alphabet");
    return code - 0x410U + 0xC0U;
  }

  std::array<char, Size> bytes{};
};

template <cp1251_text Text>
consteval char const* operator""_cp1251() {
  return Text.bytes.data();
}

template <class Name>
struct Tnamed_text {
  Name name;
  rc_entry text;
};

// Checks at compile time that each text is at the place of its name.
template <class Name, std::size_t Count>
consteval std::array<rc_entry, Count> texts_of(
    std::array<Tnamed_text<Name>, Count> const& named_texts) {
  std::array<rc_entry, Count> texts{};
  for (std::size_t i = 0; i < Count; ++i) {
    if (static_cast<std::size_t>(named_texts[i].name) != i)
      throw std::invalid_argument("a text is not at the place of its name");
    texts[i] = named_texts[i].text;
  }
  return texts;
}

// Do not correct these texts: the suite's other tools show the same ones. That includes
// spellings such as "flattering" and "Standart", the double blank of the file filter, pairs
// with different meanings, and the swapped messages 10, 2 and 10, 3.
constexpr std::array<rc_entry, 5> group_0{{
    {"done", u8"выполнено"_cp1251},
    {"user stop", u8"остановлено пользователем"_cp1251},
    {"error", u8"ошибка"_cp1251},
    {"Load from", u8"Загрузить из"_cp1251},
    {"Save to", u8"Сохранить в"_cp1251},
}};

constexpr std::array<rc_entry, 23> group_1{{
    {"Calculate statistics", u8"Расчет статистики"_cp1251},
    {"Load mask", u8"Загрузка маски"_cp1251},
    {"Save mask", u8"Сохранение маски"_cp1251},
    {"Find groups", u8"Поиск групп"_cp1251},
    {"Fill groups", u8"Заполнение групп"_cp1251},
    {"Fill small groups", u8"Заполнение малых групп"_cp1251},
    {"Thinning", u8"Утоньшение"_cp1251},
    {"Filtration", u8"Фильтрация"_cp1251},
    {"Expand", u8"Расширение"_cp1251},
    {"Calculate distances", u8"Расчет расстояний"_cp1251},
    {"Convert to bit", u8"Преобразование в биты"_cp1251},
    {"Convert to byte", u8"Преобразование в байты"_cp1251},
    {"Convert to int", u8"Преобразование в целые"_cp1251},
    {"Convert to float", u8"Преобразование в вещественные"_cp1251},
    {"Convert to bit level", u8"Преобразование в биты по уровню"_cp1251},
    {"Convert to range", u8"Преобразование в диапазон"_cp1251},
    {"Rerange", u8"Изменение диапазона"_cp1251},
    {"Exist in cell", u8"Наличие в ячейке"_cp1251},
    {"Number in cell", u8"Номер в ячейке"_cp1251},
    {"Count in cell", u8"Количество в ячейке"_cp1251},
    {"Field in cell", u8"Поле в ячейке"_cp1251},
    {"Statistics in object", u8"Статистика в объекте"_cp1251},
    {"Interpolate", u8"Интерполяция"_cp1251},
}};

constexpr std::array<rc_entry, 12> group_2{{
    {"Window mean", u8"Среднее в окне"_cp1251},
    {"Window variation", u8"Вариация в окне"_cp1251},
    {"Window majority", u8"Большинство в окне"_cp1251},
    {"Window sum", u8"Сумма в окне"_cp1251},
    {"Window minority", u8"Меньшинство в окне"_cp1251},
    {"Window deviation", u8"Отклонение в окне"_cp1251},
    {"Window median", u8"Медиана в окне"_cp1251},
    {"Window function", u8"Функция в окне"_cp1251},
    {"Window minimum", u8"Минимум в окне"_cp1251},
    {"Window maximum", u8"Максимум в окне"_cp1251},
    {"Window stat moment", u8"Статистический момент в окне"_cp1251},
    {"Window quantil", u8"Квантиль в окне"_cp1251},
}};

constexpr std::array<rc_entry, 14> group_3{{
    {"Logical NOT", u8"Логическое НЕ"_cp1251},
    {"Logical AND", u8"Логическое И"_cp1251},
    {"Logical OR", u8"Логическое ИЛИ"_cp1251},
    {"Linear \"a1*x1 + b\"", u8"Линейная \"a1*x1 + b\""_cp1251},
    {"Linear \"a1*x1 + a2*x2 + b\"", u8"Линейная \"a1*x1 + a2*x2 + b\""_cp1251},
    {"Linear \"a1*x1 + a2*x2 + a3*x3 + b\"", u8"Линейная \"a1*x1 + a2*x2 + a3*x3 + b\""_cp1251},
    {"Absolute value", u8"Абсолютное значение"_cp1251},
    {"Divide", u8"Деление"_cp1251},
    {"Condition", u8"Условие"_cp1251},
    {"Linear sum", u8"Линейная сумма"_cp1251},
    {"Multiply", u8"Умножение"_cp1251},
    {"Convert RGB to H(HSB)", u8"Преобразование RGB в H(HSB)"_cp1251},
    {"Convert RGB to S(HSB)", u8"Преобразование RGB в S(HSB)"_cp1251},
    {"Convert RGB to B(HSB)", u8"Преобразование RGB в B(HSB)"_cp1251},
}};

constexpr std::array<rc_entry, 4> group_4{{
    {"Vectoring", u8"Векторизация"_cp1251},
    {"Simplify", u8"Упрощение"_cp1251},
    {"Polygon intersection", u8"Пересечение полигонов"_cp1251},
    {"Point in polygons", u8"Точка в полигонах"_cp1251},
}};

constexpr auto group_5 = texts_of(std::to_array<Tnamed_text<button_text>>({
    {button_text::apply, {"Apply", u8"Применить"_cp1251}},
    {button_text::cancel, {"Cancel", u8"Отменить"_cp1251}},
    {button_text::help, {"Help", u8"Помощь"_cp1251}},
    {button_text::succeeded, {"Successfully executed", u8"Выполнено успешно"_cp1251}},
    {button_text::terminated,
     {"Error: execution terminated", u8"Ошибка: выполнение прервано"_cp1251}},
    {button_text::save, {"Save", u8"Сохранить"_cp1251}},
    {button_text::load, {"Load", u8"Загрузить"_cp1251}},
}));

constexpr auto group_6 = texts_of(std::to_array<Tnamed_text<editor_text>>({
    {editor_text::ellipse, {"Spheroid", u8"Эллипсоид"_cp1251}},
    {editor_text::ellipse_name, {"Spheroid", u8"Название"_cp1251}},
    {editor_text::semi_major, {"Semimajor axis", u8"Большая полуось"_cp1251}},
    {editor_text::semi_minor, {"Semiminor axis", u8"Малая полуось"_cp1251}},
    {editor_text::inv_flattening, {"Inverse flattering", u8"Обратный коэфф. сжатия"_cp1251}},
    {editor_text::geographic_system,
     {"Geographic coordinate system", u8"Система координат"_cp1251}},
    {editor_text::datum, {"Datum", u8"Датум"_cp1251}},
    {editor_text::datum_params, {"Datum parameters", u8"Параметры датума"_cp1251}},
    {editor_text::axis_x, {"Axis X", u8"Ось Х"_cp1251}},
    {editor_text::axis_y, {"Axis Y", u8"Ось Y"_cp1251}},
    {editor_text::axis_z, {"Axis Z", u8"Ось Z"_cp1251}},
    {editor_text::shift, {"Shift", u8"Смещение"_cp1251}},
    {editor_text::rotate, {"Rotate", u8"Поворот"_cp1251}},
    {editor_text::scale, {"Scale factor", u8"Масштабный коэфф."_cp1251}},
    {editor_text::projection, {"Projection", u8"Проекция"_cp1251}},
    {editor_text::projection_name, {"Projection", u8"Название"_cp1251}},
    {editor_text::projection_params, {"Projection parameters", u8"Параметры проекции"_cp1251}},
    {editor_text::lon_0, {"Central Meridian", u8"Центральный меридиан"_cp1251}},
    {editor_text::lonc, {"Central Meridian", u8"Меридиан центра проекции"_cp1251}},
    {editor_text::lat_0, {"Latitude of Origin", u8"Широта начала коорд."_cp1251}},
    {editor_text::x_0, {"False Easting", u8"Сдвиг к востоку"_cp1251}},
    {editor_text::y_0, {"False Northing", u8"Сдвиг к северу"_cp1251}},
    {editor_text::lat_1, {"1st Standart Parallel", u8"1я стандартная параллель"_cp1251}},
    {editor_text::lat_ts, {"1st Standart Parallel", u8"1я стандартная параллель"_cp1251}},
    {editor_text::lat_2, {"2nd Standart Parallel", u8"2я стандартная параллель"_cp1251}},
    {editor_text::k, {"Scale Factor", u8"Масштабный коэфф."_cp1251}},
    {editor_text::k_0, {"Scale Factor", u8"Масштабный коэфф."_cp1251}},
    {editor_text::alpha, {"Alpha", u8"Альфа"_cp1251}},
    {editor_text::kind, {"Type", u8"Тип"_cp1251}},
    {editor_text::kind_none, {"Unknown", u8"Не определена"_cp1251}},
    {editor_text::kind_usual, {"Usual projections", u8"Общие проекции"_cp1251}},
    {editor_text::kind_zonal, {"Zonal projections", u8"Зональные проекции"_cp1251}},
    {editor_text::zonal_name, {"Zonal type", u8"Проекция"_cp1251}},
    {editor_text::zone, {"Zone", u8"Номер зоны"_cp1251}},
    {editor_text::projection_file, {"Projection", u8"Проекция"_cp1251}},
    {editor_text::file_filter,
     {"Projection parameters file *.pj4|*.pj4|ESRI projection  file *.prj|*.prj",
      u8"Файл параметров проекции *.pj4|*.pj4|Файл проекции ESRI *.prj|*.prj"_cp1251}},
}));

constexpr std::array<rc_entry, 6> group_7{{
    {"Reproject shapes", u8"Перепроецирование векторных файлов"_cp1251},
    {"Source", u8"Источник"_cp1251},
    {"Destination", u8"Результат"_cp1251},
    {"File", u8"Файл"_cp1251},
    {"Projection", u8"Проекция"_cp1251},
    {"Shape files *.shp|*.shp|", u8"Векторные файлы *.shp|*.shp|"_cp1251},
}};

constexpr std::array<rc_entry, 6> group_8{{
    {"Reproject Tif", u8"Перепроецирование Tif"_cp1251},
    {"Source", u8"Источник"_cp1251},
    {"Destination", u8"Результат"_cp1251},
    {"File", u8"Файл"_cp1251},
    {"Projection", u8"Проекция"_cp1251},
    {"Image files *.tif|*.tif;*.tiff|", u8"Файлы изображений *.tif|*.tif;*.tiff|"_cp1251},
}};

constexpr std::array<rc_entry, 13> group_9{{
    {"All in object", u8"Все в объекте"_cp1251},
    {"Defined in object", u8"Определенные в объекте"_cp1251},
    {"Undefined in object", u8"Неопределенные в объекте"_cp1251},
    {"Min in object", u8"Минимум в объекте"_cp1251},
    {"Max in object", u8"Максимум в объекте"_cp1251},
    {"Mean in object", u8"Среднее в объекте"_cp1251},
    {"Standard deviation in object", u8"Стандартное отклонение в объекте"_cp1251},
    {"Majority in object", u8"Большинство в объекте"_cp1251},
    {"Majority size in object", u8"Размер большинства в объекте"_cp1251},
    {"Minority in object", u8"Меньшинство в объекте"_cp1251},
    {"Minority size in object", u8"Размер меньшинства в объекте"_cp1251},
    {"Sum", u8"Сумма"_cp1251},
    {"Density", u8"Плотность"_cp1251},
}};

constexpr std::array<rc_entry, 4> group_10{{
    {"Not enough memory. Size to alloc: %d", u8"Недостаточно памяти. Размер: %d"_cp1251},
    {"Can't open file: \"%s\"", u8"Не могу открыть файл: \"%s\""_cp1251},
    {"Error reading file: \"%s\"", u8"Ошибка записи в файл: \"%s\""_cp1251},
    {"Error writing file: \"%s\"", u8"Ошибка чтения из файла: \"%s\""_cp1251},
}};

constexpr std::array<rc_entry, 1> group_11{{
    {"K means", u8"К средних"_cp1251},
}};
constexpr std::array<std::span<rc_entry const>, 12> groups{group_0, group_1, group_2,  group_3,
                                                           group_4, group_5, group_6,  group_7,
                                                           group_8, group_9, group_10, group_11};

}  // namespace

std::span<std::span<rc_entry const> const> rc_groups() noexcept { return groups; }

}  // namespace zu
