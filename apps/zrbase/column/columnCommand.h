#ifndef ZRBASE_APPS_COLUMN_COLUMNCOMMAND_H
#define ZRBASE_APPS_COLUMN_COLUMNCOMMAND_H

#include "common/command.h"

/// Adds `zrbase column` to the application: shows the units of a default database as a table, a
/// CSV table and a drawn stratigraphic column.
Command addColumnCommand(CLI::App& application);

#endif  // ZRBASE_APPS_COLUMN_COLUMNCOMMAND_H
