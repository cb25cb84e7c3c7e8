#pragma once

#include "fltapi/Record.h"
#include "fltapi/io/VertexPaletteLayout.h"

#include <memory>
#include <set>
#include <vector>

namespace fltapi {

class FltFile;
class LightPointPalettes;

/// A stream of records of one format version. What is written is a copy: the document itself stays as it is, in host
/// order and in its own layout, so it may be looked at meanwhile.
class Output {
public:
  Output(const FltFile& file, int version);
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;
  virtual ~Output();

  const FltFile& file() const { return file_; }
  int version() const { return version_; }
  /// The vertices of the file and where each of them lies.
  VertexPaletteLayout& palette() { return palette_; }
  const VertexPaletteLayout& palette() const { return palette_; }

  /// The light point palettes of the file.
  const LightPointPalettes& lightPointPalettes();

  /// One record: head, content in file order, and continuation records for what is longer than a head can say.
  /// True also when the version doesn't know the record and so nothing is written.
  bool write(const Record& record);
  /// A record that is nothing but its head.
  bool writeBare(int opcode);
  /// All definitions of that instance number with everything below them, unless they were written before.
  bool writeDefinitionOnce(int number);
  /// The same for several numbers, without the definitions that these refer to in turn.
  bool writeDefinitions(const std::vector<int>& numbers);
  /// The vertices of the palette, unless they were written before.
  bool writeVerticesOnce();

protected:
  /// Takes `count` bytes. False when they could not be stored.
  virtual bool put(const std::byte* bytes, std::size_t count) = 0;

private:
  bool writeDefinition(int number);
  bool putPiece(int opcode, const std::byte* content, std::size_t count);

  const FltFile& file_;
  int version_;
  VertexPaletteLayout palette_;
  std::set<int> writtenDefinitions_;
  std::unique_ptr<const LightPointPalettes> lightPointPalettes_;
  bool verticesWritten_ = false;
  std::vector<std::byte> scratch_;
};

} // namespace fltapi
