#pragma once

#include "model/language/list_catalogue.h"
#include "model/language/resource_texts.h"
#include "model/language/versions.h"

namespace calyx {

class IFileStore;

// What every document of a program shares. Made at start-up, outlives the documents, handed down by
// reference; two can stand side by side.
struct ModelContext {
    ResourceTexts texts;
    ListCatalogue lists;
    TargetVersion target;
    IFileStore* files = nullptr;            // where documents are read and written
    std::string programVersion = "3.10.0";  // major "." minor with two digits "." revision
};

}  // namespace calyx
