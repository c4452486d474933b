#include <algorithm>
#include <iterator>
#include <string_view>

#include "platform/system_error_text.h"

namespace qvl {
namespace {

struct ErrorText {
  std::uint32_t code;
  std::string_view text;
};

// Windows' English texts for the codes that a remote call, its connection or its logon can end
// with: https://learn.microsoft.com/windows/win32/debug/system-error-codes
constexpr ErrorText kErrorTexts[] = {
    {1,    "Incorrect function."                                                              },
    {2,    "The system cannot find the file specified."                                       },
    {3,    "The system cannot find the path specified."                                       },
    {5,    "Access is denied."                                                                },
    {6,    "The handle is invalid."                                                           },
    {8,    "Not enough storage is available to process this command."                         },
    {13,   "The data is invalid."                                                             },
    {14,   "Not enough storage is available to complete this operation."                      },
    {31,   "A device attached to the system is not functioning."                              },
    {50,   "The request is not supported."                                                    },
    {51,
     "Windows cannot find the network path. Verify that the network path is correct and the "
     "destination computer is not busy or turned off. If Windows still cannot find the network "
     "path, contact your network administrator."                                              },
    {53,   "The network path was not found."                                                  },
    {54,   "The network is busy."                                                             },
    {55,   "The specified network resource or device is no longer available."                 },
    {58,   "The specified server cannot perform the requested operation."                     },
    {59,   "An unexpected network error occurred."                                            },
    {64,   "The specified network name is no longer available."                               },
    {65,   "Network access is denied."                                                        },
    {67,   "The network name cannot be found."                                                },
    {71,
     "No more connections can be made to this remote computer at this time because there are "
     "already as many connections as the computer can accept."                                },
    {86,   "The specified network password is not correct."                                   },
    {87,   "The parameter is incorrect."                                                      },
    {109,  "The pipe has been ended."                                                         },
    {120,  "This function is not supported on this system."                                   },
    {121,  "The semaphore timeout period has expired."                                        },
    {230,  "The pipe state is invalid."                                                       },
    {231,  "All pipe instances are busy."                                                     },
    {232,  "The pipe is being closed."                                                        },
    {233,  "No process is on the other end of the pipe."                                      },
    {997,  "Overlapped I/O operation is in progress."                                         },
    {1130, "Not enough server storage is available to process this command."                  },
    {1157, "One of the library files needed to run this application cannot be found."         },
    {1219,
     "Multiple connections to a server or shared resource by the same user, using more than one "
     "user name, are not allowed. Disconnect all previous connections to the server or shared "
     "resource and try again."                                                                },
    {1225, "The remote computer refused the network connection."                              },
    {1231,
     "The network location cannot be reached. For information about network troubleshooting, see "
     "Windows Help."                                                                          },
    {1232,
     "The network location cannot be reached. For information about network troubleshooting, see "
     "Windows Help."                                                                          },
    {1236, "The network connection was aborted by the local system."                          },
    {1311, "There are currently no logon servers available to service the logon request."     },
    {1312, "A specified logon session does not exist. It may already have been terminated."   },
    {1314, "A required privilege is not held by the client."                                  },
    {1317, "The specified account does not exist."                                            },
    {1326, "The user name or password is incorrect."                                          },
    {1327,
     "Account restrictions are preventing this user from signing in. For example: blank passwords "
     "aren't allowed, sign-in times are limited, or a policy restriction has been enforced."  },
    {1328, "Your account has time restrictions that keep you from signing in right now."      },
    {1329, "This user isn't allowed to sign in to this computer."                             },
    {1330, "The password for this account has expired."                                       },
    {1331, "This user can't sign in because this account is currently disabled."              },
    {1332, "No mapping between account names and security IDs was done."                      },
    {1351,
     "Configuration information could not be read from the domain controller, either because the "
     "machine is unavailable, or access has been denied."                                     },
    {1355, "The specified domain either does not exist or could not be contacted."            },
    {1385,
     "Logon failure: the user has not been granted the requested logon type at this computer."},
    {1396, "The target account name is incorrect."                                            },
    {1397,
     "Mutual Authentication failed. The server's password is out of date at the domain "
     "controller."                                                                            },
    {1398, "There is a time and/or date difference between the client and server."            },
    {1450, "Insufficient system resources exist to complete the requested service."           },
    {1460, "This operation returned because the timeout period expired."                      },
    {1700, "The string binding is invalid."                                                   },
    {1701, "The binding handle is not the correct type."                                      },
    {1702, "The binding handle is invalid."                                                   },
    {1703, "The RPC protocol sequence is not supported."                                      },
    {1704, "The RPC protocol sequence is invalid."                                            },
    {1705, "The string universal unique identifier (UUID) is invalid."                        },
    {1706, "The endpoint format is invalid."                                                  },
    {1707, "The network address is invalid."                                                  },
    {1708, "No endpoint was found."                                                           },
    {1709, "The timeout value is invalid."                                                    },
    {1710, "The object universal unique identifier (UUID) was not found."                     },
    {1715, "The RPC server is not listening."                                                 },
    {1716, "The manager type is unknown."                                                     },
    {1717, "The interface is unknown."                                                        },
    {1718, "There are no bindings."                                                           },
    {1719, "There are no protocol sequences."                                                 },
    {1720, "The endpoint cannot be created."                                                  },
    {1721, "Not enough resources are available to complete this operation."                   },
    {1722, "The RPC server is unavailable."                                                   },
    {1723, "The RPC server is too busy to complete this operation."                           },
    {1724, "The network options are invalid."                                                 },
    {1725, "There are no remote procedure calls active on this thread."                       },
    {1726, "The remote procedure call failed."                                                },
    {1727, "The remote procedure call failed and did not execute."                            },
    {1728, "A remote procedure call (RPC) protocol error occurred."                           },
    {1729, "Access to the HTTP proxy is denied."                                              },
    {1730, "The transfer syntax is not supported by the RPC server."                          },
    {1732, "The universal unique identifier (UUID) type is not supported."                    },
    {1733, "The tag is invalid."                                                              },
    {1734, "The array bounds are invalid."                                                    },
    {1740, "The endpoint is a duplicate."                                                     },
    {1741, "The authentication type is unknown."                                              },
    {1743, "The string is too long."                                                          },
    {1744, "The RPC protocol sequence was not found."                                         },
    {1745, "The procedure number is out of range."                                            },
    {1746, "The binding does not contain any authentication information."                     },
    {1747, "The authentication service is unknown."                                           },
    {1748, "The authentication level is unknown."                                             },
    {1749, "The security context is invalid."                                                 },
    {1750, "The authorization service is unknown."                                            },
    {1752, "The server endpoint cannot perform the operation."                                },
    {1753, "There are no more endpoints available from the endpoint mapper."                  },
    {1764, "The requested operation is not supported."                                        },
    {1765, "No security context is available to allow impersonation."                         },
    {1766, "An internal error occurred in a remote procedure call (RPC)."                     },
    {1767, "The RPC server attempted an integer division by zero."                            },
    {1768, "An addressing error occurred in the RPC server."                                  },
    {1769, "A floating-point operation at the RPC server caused a division by zero."          },
    {1770, "A floating-point underflow occurred at the RPC server."                           },
    {1771, "A floating-point overflow occurred at the RPC server."                            },
    {1775,
     "A null context handle was passed from the client to the host during a remote procedure "
     "call."                                                                                  },
    {1777, "The context handle changed during a remote procedure call."                       },
    {1778, "The binding handles passed to a remote procedure call do not match."              },
    {1779, "The stub is unable to get the remote procedure call handle."                      },
    {1780, "A null reference pointer was passed to the stub."                                 },
    {1781, "The enumeration value is out of range."                                           },
    {1782, "The byte count is too small."                                                     },
    {1783, "The stub received bad data."                                                      },
    {1787,
     "The security database on the server does not have a computer account for this workstation "
     "trust relationship."                                                                    },
    {1788, "The trust relationship between the primary domain and the trusted domain failed." },
    {1789, "The trust relationship between this workstation and the primary domain failed."   },
    {1790, "The network logon failed."                                                        },
    {1791, "A remote procedure call is already in progress for this thread."                  },
    {1792, "An attempt was made to logon, but the network logon service was not started."     },
    {1793, "The user's account has expired."                                                  },
    {1818, "The remote procedure call was cancelled."                                         },
    {1819, "The binding handle does not contain all required information."                    },
    {1820, "A communications failure occurred during a remote procedure call."                },
    {1821, "The requested authentication level is not supported."                             },
    {1823, "The error specified is not a valid Windows RPC error code."                       },
    {1825, "A security package specific error occurred."                                      },
    {1907, "The user's password must be changed before signing in."                           },
    {1909, "The referenced account is currently locked out and may not be logged on to."      },
};

constexpr bool BelowCode(const ErrorText& a, const ErrorText& b) {
  return a.code < b.code;
}

static_assert(std::is_sorted(std::begin(kErrorTexts), std::end(kErrorTexts), BelowCode));

}  // namespace

std::string TextOfErrorCode(std::uint32_t code) {
  const auto* const row = std::lower_bound(std::begin(kErrorTexts), std::end(kErrorTexts),
                                           ErrorText{code, {}}, BelowCode);
  if (row == std::end(kErrorTexts) || row->code != code) return {};
  return std::string(row->text);
}

}  // namespace qvl
