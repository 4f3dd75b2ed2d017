#ifndef TINDRA_AUTOCLI_TREE_COMMANDINPUT_H
#define TINDRA_AUTOCLI_TREE_COMMANDINPUT_H

#include <list>
#include <memory>
#include <string>

#include "tindra/Export.h"
#include "tindra/callspec/Input.h"

namespace Tindra {
namespace AutoCli {

// A call's input together with the tool's name and the command's path.
class TINDRA_EXPORT CommandInput : public CallSpec::Input {
public:
    static std::shared_ptr<CommandInput> New();

    void SetDispatcher(std::string const& name) { dispatcher = name; }
    std::string& GetDispatcher() { return dispatcher; }
    void SetCommandPath(std::list<std::string> const& path) { commandPath = path; }
    std::list<std::string>& GetCommandPath() { return commandPath; }
    std::string GetCommandPathString() const;

private:
    std::string dispatcher;
    std::list<std::string> commandPath;
};

}  // namespace AutoCli
}  // namespace Tindra

#endif
