#include "HVS.h"
namespace HVS {
QPixmap loadApplicationIcon(const QString&)
{
    return QPixmap();
}
} // namespace HVS
