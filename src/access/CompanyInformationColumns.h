#pragma once

#include <span>

#include "access/CompanyRecord.h"
#include "access/MasterColumns.h"

/// Columns of Mユーザ.
std::span<const MasterColumn<CompanyRecord>> CompanyColumns();
/// Columns of M事業所 but コード, which the operating office alone takes.
std::span<const MasterColumn<OfficeRecord>> OfficeColumns();
