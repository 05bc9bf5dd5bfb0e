#pragma once

#include <functional>
#include <set>
#include <string>

#include "ui/document_session.h"

namespace calyx::ui {

// What is done to load cells and platforms of the box on a port: each one step of undo, with a word on the
// status line where nothing can be done.
class BoxEdits {
  public:
    BoxEdits(DocumentSession& session, int port) : session_(session), port_(port) {}

    int Port() const { return port_; }
    const CJunctionBox& Box() const;  // 10002 when there is none
    void Assign(const std::set<int>& cells, int platform);
    void Unassign(const std::set<int>& cells);
    void SetInSystem(int platform, bool used);

  private:
    bool Edit(const std::string& step, const std::function<void(CJunctionBox& box)>& act);
    std::string NameOf(int platform) const;
    void Tell(int text, const QString& argument = {});

    DocumentSession& session_;
    int port_;
};

}  // namespace calyx::ui
