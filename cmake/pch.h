#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QString>

#include <algorithm>
#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>
