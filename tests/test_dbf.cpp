#include <gtest/gtest.h>
#include <shapefil.h>

#include <algorithm>
#include <bit>
#include <memory>
#include <vector>

#include "catalogue/dbf.h"
#include "catalogue/pj_dbf.h"
#include "core_support.h"
#include "dbf_image.h"

namespace {

using core_test::dbf_field;
using core_test::dbf_header;
using core_test::get_file;
using core_test::little_endian;
using core_test::put_file;
using core_test::recorded;
using core_test::Tsystem_page;
using core_test::Ttemp_folder;

// The other reader and writer of tables.
struct shapelib_closer {
  void operator()(DBFInfo* table) const { DBFClose(table); }
};
using shapelib_table = std::unique_ptr<DBFInfo, shapelib_closer>;

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

std::string sample_header(std::uint32_t records) {
  return dbf_header(records, 32 * 5 + 33, 24) + dbf_field("NAME", 'C', 6, 1) +
         dbf_field("LONG_NAME_", 'N', 4, 7, 1) + dbf_field("FLAG", 'L', 1, 11) +
         dbf_field("NUM", 'I', 4, 12) + dbf_field("DBL", 'B', 8, 16) + "\r";
}

std::string const blank_record(24, ' ');

TEST_F(Dbf, written_table_has_these_bytes) {
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
  std::string const bytes_of_half = little_endian(std::bit_cast<std::uint64_t>(0.5), 8);
  std::string const bytes_of_one = little_endian(std::bit_cast<std::uint64_t>(1.0), 8);
  EXPECT_EQ(get_file(name), sample_header(3) + std::string(11, ' ') + "F" + little_endian(1, 4) +
                                bytes_of_one + " longer1.5 T" + little_endian(0xFFFFFFFE, 4) +
                                bytes_of_half + blank_record + "\x1A");
}

TEST_F(Dbf, written_table_is_read_by_shapelib) {
  Tzu_dbf_prpdefs fields;
  fields.add({"NAME", 'C', 10});
  fields.add({"A", 'N', 12, 3});
  fields.add({"FLAG", 'L', 1});
  ASSERT_EQ(table.create(name.c_str(), fields, 2), 0);
  table.set_rec(1);
  table.set_str(field("NAME"), "krass");
  table.set_str(field("A"), "6378245.000");
  table.set_bool(field("FLAG"), true);
  ASSERT_TRUE(table.close());

  shapelib_table const other(DBFOpen(name.c_str(), "rb"));
  ASSERT_TRUE(other);
  EXPECT_EQ(DBFGetRecordCount(other.get()), 2);
  ASSERT_EQ(DBFGetFieldCount(other.get()), 3);
  std::array<char, 12> field_name{};
  int width = 0;
  int decimals = 0;
  EXPECT_EQ(DBFGetFieldInfo(other.get(), 1, field_name.data(), &width, &decimals), FTDouble);
  EXPECT_STREQ(field_name.data(), "A");
  EXPECT_EQ(width, 12);
  EXPECT_EQ(decimals, 3);
  EXPECT_STREQ(DBFReadStringAttribute(other.get(), 1, 0), "krass");
  EXPECT_EQ(DBFReadDoubleAttribute(other.get(), 1, 1), 6378245);
  EXPECT_STREQ(DBFReadLogicalAttribute(other.get(), 1, 2), "T");
  EXPECT_STREQ(DBFReadStringAttribute(other.get(), 0, 0), "");
}

TEST_F(Dbf, table_of_shapelib_is_read) {
  {
    shapelib_table const other(DBFCreate(name.c_str()));
    ASSERT_TRUE(other);
    DBFAddField(other.get(), "NAME", FTString, 6, 0);
    DBFAddField(other.get(), "COUNT", FTInteger, 5, 0);
    DBFAddField(other.get(), "SHIFT", FTDouble, 9, 3);
    DBFAddField(other.get(), "FLAG", FTLogical, 1, 0);
    DBFWriteStringAttribute(other.get(), 0, 0, "  m");
    DBFWriteIntegerAttribute(other.get(), 0, 1, -37);
    DBFWriteDoubleAttribute(other.get(), 0, 2, -140.675);
    DBFWriteLogicalAttribute(other.get(), 0, 3, 'T');
    DBFWriteStringAttribute(other.get(), 1, 0, "second");
    DBFMarkRecordDeleted(other.get(), 1, 1);
  }
  ASSERT_EQ(table.open(name.c_str(), true), 0);
  EXPECT_EQ(table.get_nr(), 2U);
  EXPECT_EQ(table.get_records_in_file(), 2U);
  ASSERT_EQ(table.get_np(), 4U);
  EXPECT_EQ(table.get_prp_type(2), 'N');
  EXPECT_EQ(table.get_prp_len(2), 9U);
  EXPECT_EQ(table.get_prp_dec(2), 3U);
  table.set_rec(0);
  EXPECT_STREQ(table.get_str(0), "  m   ") << "untrimmed";
  EXPECT_STREQ(table.get_str(2), " -140.675");
  EXPECT_EQ(table.get_int(1), -37);
  EXPECT_EQ(table.get_int(2), -140);
  EXPECT_EQ(table.get_int(0), 0);
  EXPECT_TRUE(table.get_bool(3));
  table.set_rec(1);
  EXPECT_STREQ(table.get_str(0), "second") << "a deleted record is read like any other";
}

TEST_F(Dbf, stored_field_offsets_are_used_and_zero_ones_filled_in) {
  std::string const fields = dbf_field("FIRST", 'C', 2) + dbf_field("MOVED", 'C', 2, 6) +
                             dbf_field("AFTER", 'C', 3) + dbf_field("BACK", 'C', 2, 2);
  ASSERT_EQ(open(dbf_header(1, 32 * 4 + 33, 12) + fields + "\r" + " abcdefghijk"), 0);
  table.set_rec(0);
  EXPECT_STREQ(table.get_str(0), "ab");
  EXPECT_STREQ(table.get_str(1), "fg");
  EXPECT_STREQ(table.get_str(2), "hij");
  EXPECT_STREQ(table.get_str(3), "bc");
}

TEST_F(Dbf, descriptors_end_at_the_terminator_or_the_headers_length) {
  std::string const fields =
      dbf_field("A", 'C', 1) + dbf_field("B", 'C', 1) + dbf_field("C", 'C', 1);
  struct Tcase {
    unsigned header_length;
    unsigned count;
    std::string fields;
  };
  std::vector<Tcase> const cases{{129, 3, fields + "\r"},
                                 {128, 3, fields + "\r"},
                                 {127, 2, fields + "\r"},
                                 {96, 2, fields + "\r"},
                                 {95, 1, fields + "\r"},
                                 {63, 0, fields + "\r"},
                                 {0, 0, fields + "\r"},
                                 {65535, 3, fields},
                                 {65535, 3, fields + "\r" + fields},
                                 {129, 0, "\r" + fields},
                                 {129, 0, ""}};
  for (auto const& c : cases) {
    ASSERT_EQ(open(dbf_header(0, c.header_length, 4) + c.fields), 0);
    EXPECT_EQ(table.get_np(), c.count) << c.header_length;
  }
}

TEST_F(Dbf, field_names) {
  ASSERT_EQ(
      open(dbf_header(0, 32 * 4 + 33, 9) + dbf_field("prj_NAME ", 'C', 2) +
           dbf_field("ELEVENCHARS", 'C', 2) + dbf_field(std::string_view("CUT\0REST", 8), 'C', 2) +
           dbf_field("PRJ_NAME", 'C', 2) + "\r"),
      0);
  for (char const* spelling : {"prj_name", " PRJ_NAME ", "Prj_Name\t\r\n"})
    EXPECT_EQ(field(spelling), 0U);
  EXPECT_EQ(field("elevenchars"), 1U);
  EXPECT_EQ(field("cut"), 2U);
  EXPECT_EQ(table.get_prp_name(1), "ELEVENCHARS");
  std::uint32_t index = 7;
  EXPECT_FALSE(table.find_prp_by_name("PRJ", index));
  EXPECT_EQ(index, 7U);
}

TEST_F(Dbf, binary_fields) {
  auto const number = [](double value) {
    return little_endian(std::bit_cast<std::uint64_t>(value), 8);
  };
  std::string const fields =
      dbf_field("D", 'B', 8) + dbf_field("I", 'I', 4) + dbf_field("SHORT", 'I', 2);
  std::string records = " " + number(-2.75) + little_endian(0xFFFFFFFB, 4) + little_endian(300, 2);
  records += " " + number(1e300) + little_endian(0, 4) + little_endian(0, 2);
  records += " " + number(-0.0) + little_endian(7, 4) + little_endian(0xFFFF, 2);
  records += " " + number(std::numeric_limits<double>::quiet_NaN()) + std::string(6, '\0');
  ASSERT_EQ(open(dbf_header(4, 32 * 3 + 33, 15) + fields + "\r" + records), 0);
  struct Tcase {
    char const* text;
    int whole;
    bool flag;
    char const* int_text;
    bool int_flag;
    int short_value;
  };
  std::vector<Tcase> const cases{{"-2.75", -2, true, "-5", true, 300},
                                 {"1e+300", 0, true, "0", false, 0},
                                 {"-0", 0, false, "7", true, 65535}};
  for (std::uint32_t i = 0; i < 3; ++i) {
    table.set_rec(i);
    EXPECT_EQ(recorded(std::string(table.get_str(0))), cases[i].text);
    EXPECT_EQ(table.get_int(0), cases[i].whole);
    EXPECT_EQ(table.get_bool(0), cases[i].flag);
    EXPECT_STREQ(table.get_str(1), cases[i].int_text);
    EXPECT_EQ(table.get_bool(1), cases[i].int_flag);
    EXPECT_EQ(table.get_int(2), cases[i].short_value);
    EXPECT_EQ(table.get_text(1), "");
  }
  EXPECT_EQ(table.get_dbl(0), 0);
  table.set_rec(3);
  EXPECT_EQ(table.get_int(0), 0) << "no number";
}

TEST_F(Dbf, logical_spellings) {
  for (char const* text : {"t", " TRUE ", "1", "Y\t"}) {
    bool flag = false;
    EXPECT_TRUE(Tzu_file_dbf::try_bool(text, flag) && flag) << text;
  }
  for (char const* text : {"F", "false\n", "0", "n"}) {
    bool flag = true;
    EXPECT_TRUE(Tzu_file_dbf::try_bool(text, flag) && !flag) << text;
  }
  bool flag = true;
  for (char const* text : {"", "yes", "no", "10", "?", "t f"})
    EXPECT_FALSE(Tzu_file_dbf::try_bool(text, flag)) << text;
}

TEST_F(Dbf, changes_reach_the_file_when_the_record_is_left) {
  ASSERT_EQ(table.create(name.c_str(), sample_fields(), 2), 0);
  table.set_str(0, "lost");  // no record is current
  table.set_rec(0);
  table.set_str(0, "one");
  table.set_rec(0);
  EXPECT_STREQ(table.get_str(0), "one   ") << "the current record is not read again";
  table.set_rec(1);
  EXPECT_STREQ(table.get_str(0), "      ");
  EXPECT_TRUE(table.set_prp_name(0, "ELEVEN_CHARS"));
  EXPECT_FALSE(table.set_prp_name(5, "X"));
  table.set_foxpro_code_page(0xC9);
  ASSERT_TRUE(table.close());

  ASSERT_EQ(table.open(name.c_str(), false), 0);
  EXPECT_EQ(field("ELEVEN_CHA"), 0U);
  EXPECT_EQ(table.get_foxpro_code_page(), 0xC9);
  EXPECT_EQ(table.get_nr(), 2U);
  table.set_rec(0);
  EXPECT_STREQ(table.get_str(0), "one   ");
  table.set_foxpro_code_page(0);
  table.set_rec(1);  // from its own place, wherever the file was written last
  EXPECT_STREQ(table.get_str(0), "      ");
  table.set_rec(0);
  table.set_str(0, "");
  ASSERT_EQ(table.open(name.c_str(), true), 0);  // closes, and so writes
  table.set_rec(0);
  EXPECT_STREQ(table.get_str(0), "      ");
}

TEST_F(Dbf, read_only_table_stays_as_it_is) {
  std::string const image = sample_header(1) + blank_record + "\x1A";
  ASSERT_EQ(open(image), 0);
  table.set_rec(0);
  table.set_str(0, "new");
  EXPECT_FALSE(table.set_prp_name(0, "NEW"));
  table.set_foxpro_code_page(1);
  EXPECT_FALSE(table.close()) << "the changes went nowhere";
  EXPECT_EQ(get_file(name), image);
}

TEST_F(Dbf, closed_table_answers_with_nothing) {
  EXPECT_EQ(table.open(folder.file("missing.dbf").c_str(), true), 1);
  EXPECT_EQ(table.open(folder.file("").c_str(), true), 1) << "a folder is no table";
  EXPECT_EQ(table.create(folder.file("no/t.dbf").c_str(), sample_fields(), 1), 1);
  table.set_rec(0);
  table.set_str(0, "x");
  table.set_foxpro_code_page(1);
  EXPECT_FALSE(table.set_prp_name(0, "X"));
  EXPECT_STREQ(table.get_str(0), "");
  EXPECT_EQ(table.get_dbl(0), 0);
  EXPECT_EQ(table.get_nr() + table.get_np() + table.get_records_in_file(), 0U);
  EXPECT_TRUE(table.close());
  ASSERT_EQ(table.create(name.c_str(), sample_fields(), 0), 0);
  EXPECT_TRUE(table.close()) << "what failed before the table was made is not its failure";
}

TEST_F(Dbf, names_are_in_the_systems_page) {
  for (auto const& page : core_test::system_pages()) {
    Ttemp_folder const own;
    Tsystem_page const system(page);
    ASSERT_EQ(table.create(own.file(page.bytes).c_str(), sample_fields(), 1), 0) << page.encoding;
    ASSERT_TRUE(table.close());
    EXPECT_EQ(table.open(own.wide(page.letters).c_str(), true), 0) << page.encoding;
    EXPECT_EQ(table.get_np(), 5U);
    EXPECT_EQ(table.open(own.file(page.bytes).c_str(), true), 0) << page.encoding;
    // Not the table whose name comes closest, for changing least of all.
    for (char const* close_one : {page.like, "?", "??"}) put_file(own.file(close_one), "");
    for (wchar_t const* letter : page.foreign) {
      EXPECT_EQ(table.open(own.wide(letter).c_str(), false), 1) << page.encoding;
      EXPECT_EQ(table.get_np(), 0U) << "what was open is closed";
    }
  }
}

// Damaged tables. Each is read through and through; the sanitizers watch.

constexpr std::array<char const*, 6> ellipse_columns{"ELLPS_ID", "ELLPS_NAME", "ELLPS",
                                                     "A",        "B",          "RF"};
constexpr unsigned ellipse_header_length = 32 * 6 + 33;
constexpr unsigned ellipse_record_length = 1 + 6 * 10;

std::string ellipse_fields(unsigned length = 10, std::uint32_t offset = 0, char type = 'C') {
  std::string fields;
  for (char const* column : ellipse_columns) fields += dbf_field(column, type, length, offset);
  return fields + "\r";
}

std::string ellipse_records(unsigned count) {
  std::string records;
  for (unsigned i = 0; i < count; ++i)
    records += " 7004      Clarke    clrk66    6378206.4 6356583.8           ";
  return records;
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
  std::string const image = dbf_header(3, ellipse_header_length, ellipse_record_length) +
                            ellipse_fields() + ellipse_records(3) + "\x1A";
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
  auto const whole = [](std::uint32_t records, unsigned header_length, unsigned record_length,
                        std::string const& fields = ellipse_fields()) {
    return dbf_header(records, header_length, record_length) + fields + ellipse_records(2);
  };
  std::string const noise(70000, '\x80');
  struct Tcase {
    char const* what;
    std::string image;
    int result;
    std::size_t records;
  };
  std::vector<Tcase> const cases{
      {"record length 0", whole(2, ellipse_header_length, 0), 0, 0},
      {"record length 0, a million records", whole(1000000, ellipse_header_length, 0), 0, 0},
      {"record length 1", whole(1000000, ellipse_header_length, 1), 0, 122},
      {"record length 65535", whole(2, ellipse_header_length, 65535), 0, 1},
      {"a million records", whole(1000000, ellipse_header_length, ellipse_record_length), 0, 2},
      {"4294967295 records", whole(0xFFFFFFFF, ellipse_header_length, ellipse_record_length), 0, 2},
      {"header length 0", whole(2, 0, ellipse_record_length), 200, 0},
      {"header length 33", whole(2, 33, ellipse_record_length), 200, 0},
      {"header length 65535", whole(2, 65535, ellipse_record_length), 0, 0},
      {"binary fields in records of no length",
       whole(1, ellipse_header_length, 0, ellipse_fields(8, 0, 'B')), 0, 0},
      {"fields past the record", whole(2, ellipse_header_length, 20, ellipse_fields(255)), 0, 2},
      {"binary fields past the record",
       whole(2, ellipse_header_length, 5, ellipse_fields(255, 3, 'B')), 0, 2},
      {"offsets 0xFFFFFFFF", whole(2, ellipse_header_length, 61, ellipse_fields(10, 0xFFFFFFFF)), 0,
       2},
      {"integers at offset 0xFFFFFFFF",
       whole(2, ellipse_header_length, 61, ellipse_fields(4, 0xFFFFFFFF, 'I')), 0, 2},
      {"offset at the record's last byte",
       whole(2, ellipse_header_length, 61, ellipse_fields(10, 60, 'B')), 0, 2},
      {"fields without length", whole(2, ellipse_header_length, 61, ellipse_fields(0)), 0, 2},
      {"no terminator", dbf_header(1, 65535, 61) + noise, 200, 0},
      {"columns, no terminator", dbf_header(1, 65535, 61) + ellipse_fields().substr(0, 192) + noise,
       0, 1},
      {"all 0xFF", std::string(70000, '\xFF'), 200, 0},
      {"all 0", std::string(70000, '\0'), 200, 0},
      {"empty", "", 200, 0}};
  for (auto const& c : cases) {
    put_file(name, c.image);
    Tzu_pj_ellipse_defs list;
    list.add();
    EXPECT_EQ(read_everything(name, list), c.result) << c.what;
    EXPECT_EQ(list.get_size(), c.records) << c.what;
    EXPECT_EQ(get_file(name), c.image) << c.what;
  }
}

TEST_F(Dbf, every_byte_of_the_header_turned) {
  std::string const image = dbf_header(2, ellipse_header_length, ellipse_record_length) +
                            ellipse_fields() + ellipse_records(2) + "\x1A";
  for (std::size_t at = 0; at < ellipse_header_length; ++at)
    for (unsigned const value : {0U, 0x0DU, 0x42U, 0x80U, 0xFFU}) {
      std::string damaged = image;
      damaged[at] = static_cast<char>(value);
      put_file(name, damaged);
      Tzu_pj_ellipse_defs list;
      int const result = read_everything(name, list);
      ASSERT_TRUE(result == 0 || result == 200) << at;
      ASSERT_LE(list.get_size(), image.size()) << at;
    }
}

}  // namespace
