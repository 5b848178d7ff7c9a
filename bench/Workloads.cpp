#include "Workloads.h"

namespace zelvaro::bench {
namespace {

// A counting nest: 3000 rounds of 30000 steps.
// clang-format off
const std::uint16_t countWords[] = {
    0x0000,           //     0  COUNT   START
    0x1200, 0x0000,   //     1          LAD   GR0,0
    0x1220, 0x0000,   //     3          LAD   GR2,0
    0x1210, 0x0000,   //     5  OUTER   LAD   GR1,0
    0x2601,           //     7  INNER   ADDL  GR0,GR1
    0x1211, 0x0001,   //     8          LAD   GR1,1,GR1
    0x4110, 0x0018,   //    10          CPL   GR1,INMAX
    0x6100, 0x0007,   //    12          JMI   INNER
    0x1222, 0x0001,   //    14          LAD   GR2,1,GR2
    0x4120, 0x0019,   //    16          CPL   GR2,OUTMAX
    0x6100, 0x0005,   //    18          JMI   OUTER
    0x1100, 0x0017,   //    20          ST    GR0,SUM
    0x8100,           //    22          RET
    0x0000,           //    23  SUM     DS    1
    0x7530,           //    24  INMAX   DC    30000
    0x0BB8,           //    25  OUTMAX  DC    3000
};
// clang-format on

// The sieve of Eratosthenes over 30000 cells, 400 rounds.
// clang-format off
const std::uint16_t sieveWords[] = {
    0x0000,           //     0  SIEVE   START
    0x1270, 0x0000,   //     1          LAD   GR7,0
    0x1230, 0x0001,   //     3          LAD   GR3,1
    0x1210, 0x0000,   //     5  ROUND   LAD   GR1,0
    0x1200, 0x0000,   //     7          LAD   GR0,0
    0x1101, 0x003A,   //     9  CLEAR   ST    GR0,FLAG,GR1
    0x1211, 0x0001,   //    11          LAD   GR1,1,GR1
    0x4110, 0x0037,   //    13          CPL   GR1,SIZE
    0x6100, 0x0009,   //    15          JMI   CLEAR
    0x1240, 0x0000,   //    17          LAD   GR4,0
    0x1210, 0x0002,   //    19          LAD   GR1,2
    0x1001, 0x003A,   //    21  NEXT    LD    GR0,FLAG,GR1
    0x6200, 0x0028,   //    23          JNZ   SKIP
    0x1244, 0x0001,   //    25          LAD   GR4,1,GR4
    0x1421,           //    27          LD    GR2,GR1
    0x2621,           //    28          ADDL  GR2,GR1
    0x4120, 0x0037,   //    29  STRIKE  CPL   GR2,SIZE
    0x6500, 0x0028,   //    31          JPL   SKIP
    0x6300, 0x0028,   //    33          JZE   SKIP
    0x1132, 0x003A,   //    35          ST    GR3,FLAG,GR2
    0x2621,           //    37          ADDL  GR2,GR1
    0x6400, 0x001D,   //    38          JUMP  STRIKE
    0x1211, 0x0001,   //    40  SKIP    LAD   GR1,1,GR1
    0x4110, 0x0037,   //    42          CPL   GR1,SIZE
    0x6100, 0x0015,   //    44          JMI   NEXT
    0x1277, 0x0001,   //    46          LAD   GR7,1,GR7
    0x4170, 0x0038,   //    48          CPL   GR7,ROUNDS
    0x6100, 0x0005,   //    50          JMI   ROUND
    0x1140, 0x0039,   //    52          ST    GR4,PRIMES
    0x8100,           //    54          RET
    0x7530,           //    55  SIZE    DC    30000
    0x0190,           //    56  ROUNDS  DC    400
    0x0000,           //    57  PRIMES  DS    1
                      //    58  FLAG    DS    30000
};
// clang-format on

// A bubble sort of 2000 words, 12 rounds.
// clang-format off
const std::uint16_t sortWords[] = {
    0x0000,           //     0  SORT    START
    0x1270, 0x0000,   //     1          LAD   GR7,0
    0x1210, 0x0000,   //     3  ROUND   LAD   GR1,0
    0x1020, 0x004E,   //     5          LD    GR2,SEED
    0x1121, 0x0052,   //     7  FILL    ST    GR2,TABLE,GR1
    0x1432,           //     9          LD    GR3,GR2
    0x5230, 0x0002,   //    10          SLL   GR3,2
    0x1442,           //    12          LD    GR4,GR2
    0x5240, 0x0006,   //    13          SLL   GR4,6
    0x2623,           //    15          ADDL  GR2,GR3
    0x2624,           //    16          ADDL  GR2,GR4
    0x2220, 0x004F,   //    17          ADDL  GR2,STEP
    0x1211, 0x0001,   //    19          LAD   GR1,1,GR1
    0x4110, 0x004C,   //    21          CPL   GR1,SIZE
    0x6100, 0x0007,   //    23          JMI   FILL
    0x1060, 0x004C,   //    25          LD    GR6,SIZE
    0x2360, 0x0050,   //    27          SUBL  GR6,ONE
    0x1210, 0x0000,   //    29  PASS    LAD   GR1,0
    0x1021, 0x0052,   //    31  INNER   LD    GR2,TABLE,GR1
    0x1031, 0x0053,   //    33          LD    GR3,TABLE1,GR1
    0x4423,           //    35          CPA   GR2,GR3
    0x6100, 0x002C,   //    36          JMI   KEEP
    0x6300, 0x002C,   //    38          JZE   KEEP
    0x1131, 0x0052,   //    40          ST    GR3,TABLE,GR1
    0x1121, 0x0053,   //    42          ST    GR2,TABLE1,GR1
    0x1211, 0x0001,   //    44  KEEP    LAD   GR1,1,GR1
    0x4516,           //    46          CPL   GR1,GR6
    0x6100, 0x001F,   //    47          JMI   INNER
    0x2360, 0x0050,   //    49          SUBL  GR6,ONE
    0x6200, 0x001D,   //    51          JNZ   PASS
    0x1277, 0x0001,   //    53          LAD   GR7,1,GR7
    0x4170, 0x004D,   //    55          CPL   GR7,ROUNDS
    0x6100, 0x0003,   //    57          JMI   ROUND
    0x1200, 0x0000,   //    59          LAD   GR0,0
    0x1210, 0x0000,   //    61          LAD   GR1,0
    0x1021, 0x0052,   //    63  SUM     LD    GR2,TABLE,GR1
    0x3621,           //    65          XOR   GR2,GR1
    0x2602,           //    66          ADDL  GR0,GR2
    0x1211, 0x0001,   //    67          LAD   GR1,1,GR1
    0x4110, 0x004C,   //    69          CPL   GR1,SIZE
    0x6100, 0x003F,   //    71          JMI   SUM
    0x1100, 0x0051,   //    73          ST    GR0,CHECK
    0x8100,           //    75          RET
    0x07D0,           //    76  SIZE    DC    2000
    0x000C,           //    77  ROUNDS  DC    12
    0x1267,           //    78  SEED    DC    4711
    0x3039,           //    79  STEP    DC    12345
    0x0001,           //    80  ONE     DC    1
    0x0000,           //    81  CHECK   DS    1
    0x0000,           //    82  TABLE   DS    1
                      //    83  TABLE1  DS    1999
};
// clang-format on

// The recursive Fibonacci number of 23, 300 times.
// clang-format off
const std::uint16_t fibWords[] = {
    0x0000,           //     0  FIBO    START
    0x1270, 0x0000,   //     1          LAD   GR7,0
    0x1210, 0x0017,   //     3  ROUND   LAD   GR1,23
    0x8000, 0x0010,   //     5          CALL  FIB
    0x1277, 0x0001,   //     7          LAD   GR7,1,GR7
    0x4170, 0x0027,   //     9          CPL   GR7,ROUNDS
    0x6100, 0x0003,   //    11          JMI   ROUND
    0x1130, 0x0028,   //    13          ST    GR3,RESULT
    0x8100,           //    15          RET
    0x4010, 0x0026,   //    16  FIB     CPA   GR1,TWO
    0x6100, 0x0024,   //    18          JMI   SMALL
    0x7001, 0x0000,   //    20          PUSH  0,GR1
    0x1211, 0xFFFF,   //    22          LAD   GR1,-1,GR1
    0x8000, 0x0010,   //    24          CALL  FIB
    0x7110,           //    26          POP   GR1
    0x7003, 0x0000,   //    27          PUSH  0,GR3
    0x1211, 0xFFFE,   //    29          LAD   GR1,-2,GR1
    0x8000, 0x0010,   //    31          CALL  FIB
    0x7120,           //    33          POP   GR2
    0x2632,           //    34          ADDL  GR3,GR2
    0x8100,           //    35          RET
    0x1431,           //    36  SMALL   LD    GR3,GR1
    0x8100,           //    37          RET
    0x0002,           //    38  TWO     DC    2
    0x012C,           //    39  ROUNDS  DC    300
    0x0000,           //    40  RESULT  DS    1
};
// clang-format on

// Stores into a word close after the loop.
// clang-format off
const std::uint16_t nearWords[] = {
    0x0000,           //     0  NEAR    START
    0x1220, 0x0000,   //     1          LAD   GR2,0
    0x1210, 0x0000,   //     3  OUTER   LAD   GR1,0
    0x1000, 0x0017,   //     5  INNER   LD    GR0,SUM
    0x2601,           //     7          ADDL  GR0,GR1
    0x1100, 0x0017,   //     8          ST    GR0,SUM
    0x1211, 0x0001,   //    10          LAD   GR1,1,GR1
    0x4110, 0x0018,   //    12          CPL   GR1,INMAX
    0x6100, 0x0005,   //    14          JMI   INNER
    0x1222, 0x0001,   //    16          LAD   GR2,1,GR2
    0x4120, 0x0019,   //    18          CPL   GR2,OUTMAX
    0x6100, 0x0003,   //    20          JMI   OUTER
    0x8100,           //    22          RET
    0x0000,           //    23  SUM     DC    0
    0x7530,           //    24  INMAX   DC    30000
    0x07D0,           //    25  OUTMAX  DC    2000
};
// clang-format on

// A loop that rewrites an address of its own.
// clang-format off
const std::uint16_t selfmodWords[] = {
    0x0000,           //     0  SMC     START
    0x1230, 0x0001,   //     1          LAD   GR3,1
    0x1200, 0x0000,   //     3          LAD   GR0,0
    0x1220, 0x0000,   //     5          LAD   GR2,0
    0x1210, 0x0000,   //     7  OUTER   LAD   GR1,0
    0x1241, 0x0007,   //     9  INNER   LAD   GR4,7,GR1
    0x1143, 0x000D,   //    11          ST    GR4,INS,GR3
    0x1250, 0x0000,   //    13  INS     LAD   GR5,0
    0x2605,           //    15          ADDL  GR0,GR5
    0x1211, 0x0001,   //    16          LAD   GR1,1,GR1
    0x4110, 0x001D,   //    18          CPL   GR1,INMAX
    0x6100, 0x0009,   //    20          JMI   INNER
    0x1222, 0x0001,   //    22          LAD   GR2,1,GR2
    0x4120, 0x001E,   //    24          CPL   GR2,OUTMAX
    0x6100, 0x0007,   //    26          JMI   OUTER
    0x8100,           //    28          RET
    0x03E8,           //    29  INMAX   DC    1000
    0x4E20,           //    30  OUTMAX  DC    20000
};
// clang-format on

}  // namespace

const std::vector<Workload>& workloads() {
  static const std::vector<Workload> all = {
      {"count", countWords, 26, 360'012'005, 23, 0x96C0},
      {"sieve", sieveWords, 30058, 290'186'805, 57, 0x0CAD},
      {"sort", sortWords, 2082, 203'777'190, 81, 0xC6AC},
      {"fib", fibWords, 41, 222'564'304, 40, 0x6FF1},
      {"near", nearWords, 26, 360'008'003, 23, 0x6480},
      {"selfmod", selfmodWords, 31, 140'080'005, kInGR0, 0x8880},
  };
  return all;
}

}  // namespace zelvaro::bench
