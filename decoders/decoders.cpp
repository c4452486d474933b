#include "decoders/decoders.h"

namespace qvl {
namespace {

constexpr ClassDecoder kClassDecoders[] = {
    {2,  DescribeEnvironmentEvent   },
    {3,  DescribeMemoryEvent        },
    {4,  DescribeCacheEvent         },
    {5,  DescribeProcessorEvent     },
    {6,  DescribeHostBusEvent       },
    {7,  DescribeEisaEvent          },
    {8,  DescribePciEvent           },
    {9,  DescribeSlotEvent          },
    {10, DescribePostEvent          },
    {11, DescribePowerEvent         },
    {13, DescribeAsrEvent           },
    {14, DescribeOsEvent            },
    {17, DescribeNetworkEvent       },
    {18, DescribeScsiEvent          },
    {19, DescribeArrayEvent         },
    {20, DescribeSystemErrorEvent   },
    {32, DescribeRevisionEvent      },
    {33, DescribeMaintenanceEvent   },
    {34, DescribeInfrastructureEvent},
    {37, DescribeNodeControllerEvent},
};

}  // namespace

std::span<const ClassDecoder> ClassDecoders() {
  return kClassDecoders;
}

}  // namespace qvl
