#pragma once
// A host's project and controller, as far as a cam block asks them for its end points.

#include <array>
#include <string>
#include <vector>

#include "host/collection.h"
#include "host/composed.h"

namespace canvas::testing {

struct CamHost {
    Ref<Composed> project = make<Composed>("clsProject"), data = make<Composed>("clsData"),
                  userTable = make<Composed>("clsUserTable"), controller = make<Composed>("clsController");
    Ref<Collection> tables = make<Collection>();
    std::vector<std::string> calls;  ///< "file,base address"
    std::vector<Value> before;       ///< the four points as the last call got them
    Value answer = true;             ///< what the controller gives back
    /// What it writes, one for each call and the last for all that follow: first x and y, last x and y.
    std::vector<std::array<std::int32_t, 4>> points{{10, 20, 30, 40}};

    CamHost() {
        project->property("Data", data).property("WorkingDirectory", "C:\\Job");
        data->property("UserTable", userTable);
        userTable->property("TableList", tables);
        controller->method("getCAMdata", [this](Args args) { return read(args); });
    }
    CamHost(const CamHost&) = delete;
    CamHost& operator=(const CamHost&) = delete;

    Ref<Composed> table(std::string name, std::string includeFile, Value baseAddress = std::int32_t{4096}) {
        const auto element = make<Composed>("clsTable");
        element->property("TableName", std::move(name)).property("TableIncludeFilename", std::move(includeFile));
        element->property("tablebaseaddress", std::move(baseAddress));
        tables->Add(element);
        return element;
    }

private:
    Value read(Args args) {
        if (args.size() != 6) raise(Error::argumentCount);
        calls.push_back(args[0].toText() + "," + args[1].toText());
        before.assign(args.begin() + 2, args.end());
        const auto& written = points[std::min(calls.size(), points.size()) - 1];
        for (std::size_t i = 0; i < 4; ++i) args[i + 2] = written[i];
        return answer;
    }
};

}  // namespace canvas::testing
