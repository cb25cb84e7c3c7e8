#include "scene/image/Shaders.h"

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "scene/image/FileSearch.h"

#include <osg/Notify>
#include <string>

namespace nalt {

namespace {

using fltapi::ShaderPaletteRecord;

// Layout of a GLSL entry behind its fields.
constexpr std::size_t vertexCountAt = 1036;
constexpr std::size_t fragmentCountAt = 1040;
constexpr std::size_t namesAt = 1044;
constexpr std::size_t nameSize = 1024;

/// False when one of the files is missing. `first` counts names of both kinds.
bool addShaders(osg::Program& program, osg::Shader::Type type, const ShaderPaletteRecord& entry, std::size_t first,
                std::int32_t count)
{
  const auto modelPath = entry.file() ? entry.file()->path() : std::string{};
  for (std::int32_t i = 0; i < count; ++i) {
    const auto at = namesAt + nameSize * (first + static_cast<std::size_t>(i));
    if (at + nameSize > entry.length()) return false;
    const auto name = fltapi::FieldTraits<fltapi::Text<nameSize>>::load(entry.data() + at);
    const auto path = findFileOfModel(name, modelPath);
    const osg::ref_ptr<osg::Shader> shader = path.empty() ? nullptr : osg::Shader::readShaderFile(type, path);
    if (!shader) return false;
    program.addShader(shader);
  }
  return true;
}

osg::ref_ptr<osg::Program> build(const ShaderPaletteRecord& entry)
{
  if (entry.get(ShaderPaletteRecord::fields.type) != ShaderPaletteRecord::glsl || entry.length() < namesAt)
    return nullptr;
  const auto vertexCount = fltapi::loadAt<std::int32_t>(entry.data() + vertexCountAt);
  const auto fragmentCount = fltapi::loadAt<std::int32_t>(entry.data() + fragmentCountAt);
  if (vertexCount < 0 || fragmentCount < 0 || (vertexCount == 0 && fragmentCount == 0)) return nullptr;
  osg::ref_ptr<osg::Program> program = new osg::Program;
  program->setName(entry.getName());
  const bool whole =
      addShaders(*program, osg::Shader::VERTEX, entry, 0, vertexCount) &&
      addShaders(*program, osg::Shader::FRAGMENT, entry, static_cast<std::size_t>(vertexCount), fragmentCount);
  return whole ? program : nullptr;
}

} // namespace

osg::Program* Shaders::find(const fltapi::FltFile* file, std::int16_t index)
{
  if (!file) {
    OSG_WARN << "No FLT file found for retrieving shader palette." << std::endl;
    return nullptr;
  }
  for (const auto* record : file->palette(ShaderPaletteRecord::code)) {
    const auto& entry = static_cast<const ShaderPaletteRecord&>(*record);
    if (entry.get(ShaderPaletteRecord::fields.index) != index) continue;
    const auto [place, isNew] = byEntry_.try_emplace(entry.serial());
    if (isNew) place->second = build(entry);
    return place->second;
  }
  return nullptr;
}

} // namespace nalt
