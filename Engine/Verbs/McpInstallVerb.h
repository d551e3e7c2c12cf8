// Puts the server into the files of a host, or takes it out again.
#pragma once

#include "Engine/Console/Verb.h"
#include "TavixAgent/Hosts/Installation.h"

#include <optional>
#include <string>

namespace tavix::engine {

class McpHostVerb : public Verb {
public:
    void declare(Arguments& arguments, Terminal& terminal) override;
    void run(Terminal& terminal) override;

protected:
    virtual InstallResult change(const InstallRequest& request) const = 0;
    virtual bool takesCommand() const = 0;

private:
    std::optional<std::string> host_, repo_, command_;
    bool isGlobal_ = false;
};

class McpInstallVerb : public McpHostVerb {
    InstallResult change(const InstallRequest& request) const override { return install(request); }
    bool takesCommand() const override { return true; }
};

class McpUninstallVerb : public McpHostVerb {
    InstallResult change(const InstallRequest& request) const override { return uninstall(request); }
    bool takesCommand() const override { return false; }
};

}   // namespace tavix::engine
