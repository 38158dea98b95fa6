#pragma once

// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.

#include "data/connection/connection.h"
#include "data/connection/connection_params.h"
#include "data/connection/data_types.h"
#include "data/filesystem/filesystem.h"
#include "data/filesystem/strutil.h"
#include "data/filesystem/transform.h"
#include "data/filesystem/tutils.h"
#include "data/source/field_dict.h"
#include "data/source/generic_datasource.h"
#include "data/source/statistic.h"
#include "data/vector/any.h"
#include "data/vector/transacted_feature.h"
#include "data/vector/vector_datasource.h"
#include "data/vector/vector_definition.h"
#include "data/vector/vector_feature.h"
#include "data/vector/vector_transaction.h"
