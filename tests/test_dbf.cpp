#include <gtest/gtest.h>
#include <shapefil.h>

#include <algorithm>
#include <bit>
#include <limits>
#include <memory>
#include <optional>
#include <tuple>
#include <vector>

#include "catalogue/dbf.h"
#include "catalogue/pj_dbf.h"
#include "core_support.h"

namespace {

using core_test::get_file;
using core_test::put_file;
using core_test::recorded;
using core_test::Ttemp_folder;

// The other reader and writer of tables.
using shapelib_table = std::unique_ptr<DBFInfo, decltype(&DBFClose)>;

// Tables made byte by byte.
std::string little_endian(std::uint64_t value, std::size_t size) {
  std::string bytes;
  for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
  return bytes;
}

std::string bytes_of(double number) {
  return little_endian(std::bit_cast<std::uint64_t>(number), 8);
}

std::string dbf_header(std::uint32_t records, unsigned header_length, unsigned record_length) {
  return std::string("\x03\x01\x01\x01") + little_endian(records, 4) +
         little_endian(header_length, 2) + little_endian(record_length, 2) + std::string(20, '\0');
}

std::string dbf_field(std::string_view name, char type, unsigned length, std::uint32_t offset = 0,
                      unsigned decimal = 0) {
  std::string bytes(name);
  bytes.resize(11, '\0');
  bytes += type + little_endian(offset, 4) + little_endian(length, 1) + little_endian(decimal, 1);
  bytes.resize(32, '\0');
  return bytes;
}

class Dbf : public testing::Test {
 protected:
  int open(std::string const& image, bool read_only = true) {
    put_file(name, image);
    return table.open(name.c_str(), read_only);
  }
  std::uint32_t field(std::string_view wanted) {
    std::uint32_t index = 999;
    EXPECT_TRUE(table.find_prp_by_name(wanted, index)) << wanted;
    return index;
  }

  Ttemp_folder const folder;
  std::string const name = folder.file("t.dbf");
  Tzu_file_dbf table;
};

Tzu_dbf_prpdefs sample_fields() {
  Tzu_dbf_prpdefs fields;
  fields.add({"NAME", 'C', 6});
  fields.add({"LONG_NAME_CUT", 'N', 4, 1});
  fields.add({"FLAG", 'L', 1});
  fields.add({"NUM", 'I', 4});
  fields.add({"DBL", 'B', 8});
  return fields;
}

TEST_F(Dbf, written_table_has_these_bytes_and_is_read_by_shapelib) {
  ASSERT_EQ(table.create(name.c_str(), sample_fields(), 2), 0);
  table.set_rec(1);
  table.set_str(0, "longer than six");
  table.set_str(1, "1.5");
  table.set_bool(2, true);
  table.set_int(3, -2);
  table.set_dbl(4, 0.5);
  table.set_rec(0);  // writes record 1
  table.set_bool(2, false);
  table.set_bool(3, true);
  table.set_bool(4, true);
  ASSERT_TRUE(table.add_rec(1));
  EXPECT_EQ(table.get_nr(), 3U);
  ASSERT_TRUE(table.close());  // writes record 0
  EXPECT_EQ(get_file(name),
            dbf_header(3, 32 * 5 + 33, 24) + dbf_field("NAME", 'C', 6, 1) +
                dbf_field("LONG_NAME_", 'N', 4, 7, 1) + dbf_field("FLAG", 'L', 1, 11) +
                dbf_field("NUM", 'I', 4, 12) + dbf_field("DBL", 'B', 8, 16) + "\r" +
                std::string(11, ' ') + "F" + little_endian(1, 4) + bytes_of(1) + " longer1.5 T" +
                little_endian(0xFFFFFFFE, 4) + bytes_of(0.5) + std::string(24, ' ') + "\x1A");
  shapelib_table other(DBFOpen(name.c_str(), "rb+"), DBFClose);
  ASSERT_TRUE(other);
  EXPECT_EQ(DBFGetRecordCount(other.get()), 3);
  EXPECT_EQ(DBFGetFieldCount(other.get()), 5);
  EXPECT_STREQ(DBFReadStringAttribute(other.get(), 1, 0), "longer");
  EXPECT_EQ(DBFReadDoubleAttribute(other.get(), 1, 1), 1.5);
  EXPECT_STREQ(DBFReadLogicalAttribute(other.get(), 1, 2), "T");
  EXPECT_STREQ(DBFReadStringAttribute(other.get(), 2, 0), "");
  DBFMarkRecordDeleted(other.get(), 1, 1);
  other.reset();
  EXPECT_EQ(table.open(L"\xFFFF", true), 1) << "no page has this letter";
  ASSERT_EQ(table.open(folder.wide(L"t.dbf").c_str(), true), 0);
  EXPECT_TRUE(table.get_records_in_file() == 3 && table.get_np() == 5);
  EXPECT_TRUE(table.get_prp_type(1) == 'N' && table.get_prp_len(1) == 4 &&
              table.get_prp_dec(1) == 1);
  table.set_rec(1);
  EXPECT_STREQ(table.get_str(0), "longer") << "a deleted record is read like any other";
  EXPECT_STREQ(table.get_str(1), "1.5 ") << "untrimmed";
  EXPECT_TRUE(table.get_int(1) == 1 && table.get_int(0) == 0 && table.get_bool(2));
}

TEST_F(Dbf, stored_field_offsets_are_used_and_zero_ones_filled_in) {
  std::string const fields = dbf_field("prj_NAME ", 'C', 2) + dbf_field("ELEVENCHARS", 'C', 2, 6) +
                             dbf_field(std::string_view("CUT\0REST", 8), 'C', 3) +
                             dbf_field("PRJ_NAME", 'C', 2, 2);
  ASSERT_EQ(open(dbf_header(1, 32 * 4 + 33, 12) + fields + "\r" + " abcdefghijk"), 0);
  table.set_rec(0);
  for (std::uint32_t i = 0; char const* text : {"ab", "fg", "hij", "bc"})
    EXPECT_STREQ(table.get_str(i++), text);
  EXPECT_TRUE(field(" PRJ_NAME ") == 0 && field("Prj_Name\t\r\n") == 0) << "the first";
  EXPECT_TRUE(field("elevenchars") == 1 && field("cut") == 2);
  EXPECT_EQ(table.get_prp_name(1), "ELEVENCHARS");
  std::uint32_t index = 7;
  EXPECT_FALSE(table.find_prp_by_name("PRJ", index));
}

TEST_F(Dbf, descriptors_end_at_the_terminator_or_the_headers_length) {
  std::string const fields =
      dbf_field("A", 'C', 1) + dbf_field("B", 'C', 1) + dbf_field("C", 'C', 1);
  std::string const ended = fields + "\r";
  using row = std::tuple<unsigned, unsigned, std::string>;
  for (auto const& [header_length, count, content] :
       {row(129, 3, ended), row(127, 2, ended), row(95, 1, ended), row(0, 0, ended),
        row(65535, 3, fields), row(65535, 3, ended + fields), row(129, 0, "\r" + fields),
        row(129, 0, "")}) {
    ASSERT_EQ(open(dbf_header(0, header_length, 4) + content), 0);
    EXPECT_EQ(table.get_np(), count) << header_length;
  }
}

TEST_F(Dbf, binary_fields) {
  std::string const fields =
      dbf_field("D", 'B', 8) + dbf_field("I", 'I', 4) + dbf_field("SHORT", 'I', 2);
  std::string records;
  for (auto const& [number, whole, short_value] :
       {std::tuple(-2.75, 0xFFFFFFFB, 300U), std::tuple(1e300, 0U, 0U),
        std::tuple(-0.0, 7U, 65535U), std::tuple(std::numeric_limits<double>::quiet_NaN(), 0U, 0U)})
    records += " " + bytes_of(number) + little_endian(whole, 4) + little_endian(short_value, 2);
  ASSERT_EQ(open(dbf_header(4, 32 * 3 + 33, 15) + fields + "\r" + records), 0);
  std::string all;
  for (std::uint32_t record = 0; record < 4; ++record) {
    table.set_rec(record);
    for (std::uint32_t i = 0; i < 3 && record < 3; ++i)
      all.append(table.get_str(i)).append(table.get_bool(i) ? " yes " : " no ") +=
          std::to_string(table.get_int(i)) + ", ";
  }
  EXPECT_EQ(recorded(all),
            "-2.75 yes -2, -5 yes -5, 300 yes 300, 1e+300 yes 0, 0 no 0, 0 no 0, "
            "-0 no 0, 7 yes 7, 65535 yes 65535, ");
  EXPECT_EQ(table.get_int(0), 0) << "no number";
}

TEST_F(Dbf, logical_spellings) {
  using row = std::pair<char const*, std::optional<bool>>;
  for (auto const& [text, value] :
       {row("t", true), row(" TRUE ", true), row("1", true), row("Y\t", true), row("F", false),
        row("false\n", false), row("0", false), row("n", false), row("", {}), row("yes", {}),
        row("10", {}), row("t f", {})}) {
    bool flag = !value.value_or(true);
    EXPECT_EQ(Tzu_file_dbf::try_bool(text, flag), value.has_value()) << text;
    EXPECT_EQ(flag, value.value_or(false)) << text;
  }
}

TEST_F(Dbf, changes_reach_the_file_when_the_record_is_left) {
  ASSERT_EQ(table.create(name.c_str(), sample_fields(), 2), 0);
  table.set_str(0, "lost");  // no record is current
  table.set_rec(0);
  table.set_str(0, "one");
  table.set_rec(0);
  EXPECT_STREQ(table.get_str(0), "one   ") << "the current record is not read again";
  table.set_rec(1);
  EXPECT_TRUE(table.set_prp_name(0, "ELEVEN_CHARS"));
  table.set_foxpro_code_page(0xC9);
  table.set_rec(0);  // from its own place, wherever the file was written last
  EXPECT_STREQ(table.get_str(0), "one   ");
  table.set_str(0, "two");
  ASSERT_EQ(table.open(name.c_str(), true), 0);  // closes, and so writes
  EXPECT_EQ(field("ELEVEN_CHA"), 0U);
  EXPECT_EQ(table.get_foxpro_code_page(), 0xC9);
  table.set_rec(0);
  EXPECT_STREQ(table.get_str(0), "two   ");
  // Read-only now: changes are not written.
  std::string const image = get_file(name);
  table.set_str(0, "new");
  EXPECT_FALSE(table.set_prp_name(0, "NEW"));
  EXPECT_FALSE(table.close());
  EXPECT_EQ(get_file(name), image);
  // A closed table answers with nothing.
  EXPECT_EQ(table.create(folder.file("no/t.dbf").c_str(), sample_fields(), 1), 1);
  EXPECT_STREQ(table.get_str(0), "");
  EXPECT_EQ(table.get_nr() + table.get_np() + table.get_records_in_file(), 0U);
  EXPECT_TRUE(table.close());
}

// Damaged tables. All of each is read; the sanitizers look for mistakes.

constexpr unsigned ellipse_header_length = 32 * 6 + 33;
constexpr unsigned ellipse_record_length = 1 + 6 * 10;

std::string ellipse_fields(unsigned length = 10, std::uint32_t offset = 0, char type = 'C') {
  std::string fields;
  for (char const* column : {"ELLPS_ID", "ELLPS_NAME", "ELLPS", "A", "B", "RF"})
    fields += dbf_field(column, type, length, offset);
  return fields + "\r";
}

// A table of so many records, whatever its header claims.
std::string ellipse_table(std::uint32_t claimed, unsigned records,
                          unsigned header_length = ellipse_header_length,
                          unsigned record_length = ellipse_record_length,
                          std::string const& fields = ellipse_fields()) {
  std::string image = dbf_header(claimed, header_length, record_length) + fields;
  for (unsigned i = 0; i < records; ++i)
    image += " 7004      Clarke    clrk66    6378206.4 6356583.8           ";
  return image;
}

// Loads the table as a list of ellipsoids after asking it everything.
int read_everything(std::string const& name, Tzu_pj_ellipse_defs& list) {
  Tzu_file_dbf table;
  if (int const result = table.open(name.c_str(), true); result != 0) return result;
  for (std::uint32_t const record : {0U, 1U, 2U, 1000U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    table.set_rec(record);
    for (std::uint32_t i = 0; i <= std::min(table.get_np(), 3000U); ++i) {
      EXPECT_LE(std::string_view(table.get_str(i)).size(), 255U);
      table.get_int(i);
      table.get_dbl(i);
      table.get_bool(i);
      table.get_text(i);
      table.get_prp_name(i);
      table.set_str(i, "longer than any field of the table");
      table.set_dbl(i, 1);
    }
  }
  table.close();
  return Tzu_pj_dbf::load_pj_ellipse(name, list);
}

TEST_F(Dbf, table_cut_at_any_byte_gives_what_is_there) {
  // The header claims one record too many. The end mark is not a record.
  std::string const image = ellipse_table(4, 3) + "\x1A";
  std::size_t const last_column_named = 32 + 5 * 32 + 2;
  for (std::size_t size = 0; size <= image.size(); ++size) {
    put_file(name, image.substr(0, size));
    Tzu_pj_ellipse_defs list;
    ASSERT_EQ(read_everything(name, list), size < last_column_named ? 200 : 0) << size;
    std::size_t const data = size > ellipse_header_length ? size - ellipse_header_length : 0;
    std::size_t const begun =
        std::min<std::size_t>((data + ellipse_record_length - 1) / ellipse_record_length, 3);
    ASSERT_EQ(list.get_size(), begun) << size;
    if (begun == 0) continue;
    // The caption lies at bytes 11 to 20 of the record; what is missing is empty.
    std::size_t const there = data - (begun - 1) * ellipse_record_length;
    std::size_t const letters = std::clamp<std::size_t>(there, 11, 17) - 11;
    ASSERT_EQ(list.get(begun - 1).get_caption(), std::string("Clarke").substr(0, letters)) << size;
    ASSERT_EQ(list.get(begun - 1).get_semi_major() == 6378206.4, there >= 40) << size;
    ASSERT_EQ(list.get(0).get_def_semi_minor(), data > 41) << size;
  }
}

TEST_F(Dbf, absurd_headers) {
  constexpr unsigned header = ellipse_header_length;
  std::string const noise(70000, '\x80');
  using row = std::tuple<char const*, std::string, int, std::size_t>;
  std::vector<row> const cases{
      {"record length 0, a million records", ellipse_table(1000000, 2, header, 0), 0, 0},
      {"record length 1", ellipse_table(1000000, 2, header, 1), 0, 122},
      {"record length 65535", ellipse_table(2, 2, header, 65535), 0, 1},
      {"4294967295 records", ellipse_table(0xFFFFFFFF, 2) + std::string(300, '\x1A'), 0, 2},
      {"header length 0", ellipse_table(2, 2, 0), 200, 0},
      {"header length 65535", ellipse_table(2, 2, 65535), 0, 0},
      {"numbers, no record", ellipse_table(1, 2, header, 0, ellipse_fields(8, 0, 'B')), 0, 0},
      {"texts past it", ellipse_table(2, 2, header, 20, ellipse_fields(255)), 0, 2},
      {"numbers past it", ellipse_table(2, 2, header, 5, ellipse_fields(255, 3, 'B')), 0, 2},
      {"far texts", ellipse_table(2, 2, header, 61, ellipse_fields(10, 0xFFFFFFFF)), 0, 2},
      {"at the last byte", ellipse_table(2, 2, header, 61, ellipse_fields(10, 60, 'B')), 0, 2},
      {"no length", ellipse_table(2, 2, header, 61, ellipse_fields(0)), 0, 2},
      {"no terminator", dbf_header(1, 65535, 61) + noise, 200, 0},
      {"columns, then noise", dbf_header(1, 65535, 61) + ellipse_fields().substr(0, 192) + noise, 0,
       1},
      {"all 0xFF", std::string(70000, '\xFF'), 200, 0},
      {"empty", "", 200, 0}};
  for (auto const& [what, image, result, records] : cases) {
    put_file(name, image);
    Tzu_pj_ellipse_defs list;
    list.add();
    EXPECT_EQ(read_everything(name, list), result) << what;
    EXPECT_EQ(list.get_size(), records) << what;
    EXPECT_EQ(get_file(name), image) << what;
  }
}

}  // namespace
