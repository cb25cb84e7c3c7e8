#include "app/dialogs/HelpServer.h"

#include "app/SettingsFile.h"
#include "platform/Paths.h"
#include "platform/Process.h"

#include <filesystem>

namespace nalt {

namespace {

constexpr const char* settingsName = "nalt.cfg";
constexpr const char* jarName = "org.eclipse.help.base_3.3.100.v20080617.jar";

} // namespace

HelpServer::Place HelpServer::ownPlace()
{
  return {executableFolder(), SettingsFile::get().path()};
}

std::string HelpServer::jar() const
{
  return place_.programFolder + "help/plugins/" + jarName;
}

std::string HelpServer::settingsFolder() const
{
  const auto name = place_.settingsPath.find(settingsName);
  return name == std::string::npos ? "" : place_.settingsPath.substr(0, name);
}

bool HelpServer::isInstalled() const
{
  std::error_code ignored;
  return !place_.programFolder.empty() && std::filesystem::is_regular_file(jar(), ignored);
}

std::vector<std::string> HelpServer::commandLine(const std::string& command) const
{
  const std::string settings = settingsFolder();
  return {"java",     "-classpath",     jar(),          "org.eclipse.help.standalone.Help", "-clean",
          "-command", command,          "-eclipsehome", place_.programFolder + "help",      "-data",
          settings,   "-configuration", settings};
}

std::string HelpServer::display()
{
  if (!isInstalled()) return "Failed starting help, didn't find installation directory.";
  if (settingsFolder().empty()) return "Failed starting help, didn't find user's directory.";
  if (!startProgram(commandLine("displayHelp")))
    return "Failed starting help. Please check if at least Java 6 (JRE 1.6.0) 64-bit is installed. NOTE that it has to "
           "be 64bit!";
  started_ = true;
  return "";
}

void HelpServer::shutDown()
{
  if (started_) startProgram(commandLine("shutdown"));
  started_ = false;
}

} // namespace nalt
