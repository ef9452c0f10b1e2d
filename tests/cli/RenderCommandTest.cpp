#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <array>

#include "cli/CliProcess.h"
#include "rom/HexText.h"
#include "support/PlainWorld.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

using test::PlainWorld;

// An indexed PNG taken apart: size, palette and the index rows, each chunk's CRC checked.
struct Png {
  std::uint32_t width = 0, height = 0;
  std::vector<std::array<std::uint8_t, 3>> palette;
  QByteArray rows;  // height rows of a filter byte and width indices
  bool crc_ok = true;

  std::uint32_t Rgb(std::uint32_t x, std::uint32_t y) const {
    const auto at = static_cast<qsizetype>(y * (width + 1) + 1 + x);
    const auto index = static_cast<std::uint8_t>(rows[at]);
    const auto& c = palette.at(index);
    return std::uint32_t{c[0]} << 16 | c[1] << 8 | c[2];
  }
};

std::uint32_t Crc(const std::uint8_t* p, std::size_t n) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (std::size_t i = 0; i < n; ++i) {
    crc ^= p[i];
    for (int k = 0; k < 8; ++k) crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1)));
  }
  return ~crc;
}

std::uint32_t BigEndian(const std::uint8_t* p) {
  return std::uint32_t{p[0]} << 24 | p[1] << 16 | p[2] << 8 | p[3];
}

Png ReadPng(const Bytes& file) {
  Png png;
  QByteArray idat;
  const Bytes signature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  EXPECT_EQ(Bytes(file.begin(), file.begin() + 8), signature);
  for (std::size_t at = 8; at + 12 <= file.size();) {
    const std::uint32_t length = BigEndian(&file[at]);
    const std::string type(reinterpret_cast<const char*>(&file[at + 4]), 4);
    const std::uint8_t* body = &file[at + 8];
    png.crc_ok &= Crc(&file[at + 4], length + 4) == BigEndian(body + length);
    if (type == "IHDR") {
      png.width = BigEndian(body);
      png.height = BigEndian(body + 4);
      EXPECT_EQ(body[8], 8);  // bits
      EXPECT_EQ(body[9], 3);  // indexed
    } else if (type == "PLTE") {
      for (std::uint32_t i = 0; i + 2 < length; i += 3)
        png.palette.push_back({body[i], body[i + 1], body[i + 2]});
    } else if (type == "IDAT") {
      idat.append(reinterpret_cast<const char*>(body), length);
    }
    at += 12 + length;
  }
  // qUncompress wants the expected size in front of the zlib stream.
  const std::uint32_t size = png.height * (png.width + 1);
  QByteArray framed;
  for (int shift = 24; shift >= 0; shift -= 8) framed.append(static_cast<char>(size >> shift));
  png.rows = qUncompress(framed + idat);
  EXPECT_EQ(static_cast<std::uint32_t>(png.rows.size()), size);
  return png;
}

class RenderCommandTest : public ::testing::Test {
 protected:
  std::string Write(const Bytes& bytes) {
    test::WriteFileBytes(rom, bytes);
    test::WriteFileText(ini, "");
    return rom;
  }
  test::CliResult Run(std::vector<std::string> args) {
    args.insert(args.begin(), {"--ini", ini});
    return test::RunCli(args);
  }
  static QJsonObject Json(const test::CliResult& r) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object();
  }

  test::TempDir dir;
  std::string rom = dir.File("world.gbc"), ini = dir.File("k.ini"), png = dir.File("map.png");
};

TEST_F(RenderCommandTest, MapPrintsHeadersGridConnectionsAndColours) {
  const BuiltRom world = PlainWorld().BuildWithLayout();
  Write(world.bytes);
  test::CliResult r = Run({"map", rom, "2", "2"});
  ASSERT_EQ(r.status, 0) << r.err;
  QJsonObject json = Json(r);
  const QJsonArray grid = json["grid"].toArray();
  ASSERT_EQ(grid.size(), 10);
  EXPECT_EQ(grid[0].toString(), "01010102010001010101");  // the neighbour's last three rows
  EXPECT_EQ(grid[9].toString(), "01010101010101010101");
  const QJsonArray connections = json["connections"].toArray();
  ASSERT_EQ(connections.size(), 1);
  const QJsonObject north = connections[0].toObject();
  EXPECT_EQ(north["direction"].toInt(), 0);
  EXPECT_EQ(north["rect"].toArray(), (QJsonArray{3, 0, 5, 2}));
  EXPECT_EQ(north["bank"].toInt(), 2);
  EXPECT_EQ(north["map"].toInt(), 1);
  QJsonArray colours = json["colours"].toArray();
  ASSERT_EQ(colours.size(), 32);
  EXPECT_EQ(colours[0].toString(), "080808");
  EXPECT_EQ(colours[9].toString(), "FF0000");
  EXPECT_EQ(colours[31].toString(), "0000FF");

  r = Run({"map", "--time", "1", rom, "2", "1"});
  ASSERT_EQ(r.status, 0) << r.err;
  json = Json(r);
  const MapLayout& at = world.layout.Map(2, 1);
  auto hex = [&](std::int64_t offset, int n) {
    std::string out;
    for (int i = 0; i < n; ++i) out += Hex2(world.bytes[static_cast<std::size_t>(offset + i)]);
    return out;
  };
  EXPECT_EQ(json["map"].toInt(), 1);
  EXPECT_EQ(json["offset"].toInteger(), at.primary_header);
  EXPECT_EQ(json["primary"].toString().toStdString(), hex(at.primary_header, 30));
  EXPECT_EQ(json["secondary"].toString().toStdString(), hex(at.secondary_header, 60));
  EXPECT_EQ(json["width"].toInt(), 3);
  EXPECT_EQ(json["height"].toInt(), 4);
  EXPECT_EQ(json["colours"].toArray()[9].toString(), "FFFFFF");
  EXPECT_EQ(json["connections"].toArray().size(), 0);
  EXPECT_EQ(json["grid"].toArray()[3].toString(), "030303000102030303");

  r = Run({"map", rom, "2", "3"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, "Fehler: Ziel-Map (2.3) existiert nicht.\n");
  EXPECT_EQ(Run({"map", dir.path().string(), "1", "1"}).err, "Ist ein Verzeichnis: " + dir.path().string() + "\n");
  for (const auto& bad : std::vector<std::vector<std::string>>{
           {"map", rom, "2", "1", "--time", "9"}, {"map", rom, "2", "1", "--zoom", "2"},
           {"map", rom, "0", "1"}, {"map", rom, "27", "1"}, {"map", rom, "2", "0"},
           {"map", rom, "x", "1"}, {"map", rom, "2", "-1"}, {"map", rom, "2", "1.5"}, {"map", rom, "2"},
           {"render", rom, "2", "1", png, "--zoom", "3"}, {"render", rom, "2", "1"}}) {
    r = Run(bad);
    EXPECT_EQ(r.status, 2) << bad[2] << " " << bad.back() << r.err;
    EXPECT_NE(r.err.find("Usage: kartova-cli [--ini FILE] " + bad[0] + " ROM BANK MAP"), std::string::npos);
  }
}

TEST_F(RenderCommandTest, RenderWritesTheBorderedGridInTheTableColours) {
  Write(PlainWorld().Build());
  test::CliResult r = Run({"render", rom, "2", "1", png});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out, "");
  Png picture = ReadPng(test::ReadFileBytes(png));
  EXPECT_TRUE(picture.crc_ok);
  ASSERT_EQ(picture.width, 9u * 32);
  ASSERT_EQ(picture.height, 10u * 32);
  EXPECT_EQ(picture.Rgb(0, 0), 0x0000FFu);            // border block 3
  EXPECT_EQ(picture.Rgb(3 * 32 + 5, 3 * 32), 0x080808u);  // block 0
  EXPECT_EQ(picture.Rgb(4 * 32 + 31, 3 * 32 + 31), 0xFF0000u);
  EXPECT_EQ(picture.Rgb(5 * 32, 3 * 32 + 7), 0x00FF00u);
  EXPECT_EQ(picture.Rgb(9 * 32 - 1, 10 * 32 - 1), 0x0000FFu);

  r = Run({"render", "--zoom=2", rom, "2", "1", png, "--time", "1"});
  ASSERT_EQ(r.status, 0) << r.err;
  picture = ReadPng(test::ReadFileBytes(png));
  EXPECT_TRUE(picture.crc_ok);
  ASSERT_EQ(picture.width, 9u * 64);
  ASSERT_EQ(picture.height, 10u * 64);
  EXPECT_EQ(picture.Rgb(4 * 64 + 63, 3 * 64), 0xFFFFFFu);  // block 1 at lighting 1
  EXPECT_EQ(picture.Rgb(3 * 64 + 1, 4 * 64 + 63), 0x00FF00u);

  EXPECT_EQ(Run({"render", rom, "2", "1", dir.path().string()}).status, 1);  // not writable
  EXPECT_EQ(Run({"render", rom, "2", "3", png}).err, "Fehler: Ziel-Map (2.3) existiert nicht.\n");
}

TEST_F(RenderCommandTest, AStripOutsideTheGridStillShowsTheMapAndFails) {
  RomBuilder b = PlainWorld();
  const std::array<std::uint8_t, 12> south = {2, 1, 0x00, 0x40, 0x00, 0xC9, 3, 3, 0, 0, 0, 0};
  b.Map(2, {.width = 2, .height = 2, .blocks = {2, 2, 2, 2},
            .connections = {{.direction = Direction::kSouth, .target = {2, 1}, .raw = south}}});
  Write(b.Build());
  const std::string message = "Laufzeitfehler '9': Index außerhalb des gültigen Bereichs\n";
  test::CliResult r = Run({"map", rom, "2", "3"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, message);
  EXPECT_EQ(Json(r)["grid"].toArray()[3].toString(), "0000000202000000");
  r = Run({"render", rom, "2", "3", png});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, message);
  const Png picture = ReadPng(test::ReadFileBytes(png));
  EXPECT_EQ(picture.Rgb(3 * 32, 3 * 32), 0x00FF00u);
}

}  // namespace
}  // namespace kartova
