// Compiled once for all files of the desktop program and its tests: what nearly all of them include.
// Each file still includes what it uses itself, for builds without it (CALYX_PCH=OFF).

#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>
#include <QTreeView>
#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/document/indicator.h"
#include "ui/document_session.h"
