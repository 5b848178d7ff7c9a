// The programs of the lessons, as they are put in the editor.
export const first = `; Adds 3 and 4 and prints the digit.
; 3 と 4 を足して、その数字を表示する。
MAIN     START
         LD    GR1,A         ; GR1 <- 3
         ADDA  GR1,B         ; GR1 <- GR1 + 4
         ADDA  GR1,=#0030    ; 7 + #0030 = '7'
         ST    GR1,DIGIT
         OUT   DIGIT,ONE
         RET
A        DC    3
B        DC    4
DIGIT    DS    1
ONE      DC    1
         END
`;

export const copy = `; Y is to become a copy of X.
; Y を X の写しにする。
MAIN     START
         LD    GR1,X
         RET
X        DC    5
Y        DS    1
         END
`;

export const sum = `; D is to become A + B - C.
; D を A + B - C にする。
MAIN     START
         LD    GR1,A
         ADDA  GR1,B
         ST    GR1,D
         RET
A        DC    10
B        DC    20
C        DC    7
D        DS    1
         END
`;

export const larger = `; MAX is to become the larger one of A and B.
; MAX を A と B の大きい方にする。
MAIN     START
         LD    GR1,A
         CPA   GR1,B
         ST    GR1,MAX
         RET
A        DC    3
B        DC    8
MAX      DS    1
         END
`;

export const loop = `; SUM is to become 1 + 2 + ... + N.
; SUM を 1 + 2 + ... + N にする。
MAIN     START
         LAD   GR1,0         ; the sum       合計
         LD    GR2,N         ; the next one  次に足す数
LOOP     ADDA  GR1,GR2
         SUBA  GR2,=1
         ST    GR1,SUM
         RET
N        DC    10
SUM      DS    1
         END
`;

export const table = `; SUM is to become the sum of the five words from TABLE on.
; SUM を TABLE からの 5 語の合計にする。
MAIN     START
         LAD   GR1,0         ; the sum    合計
         LAD   GR2,0         ; the index  添字
LOOP     ADDA  GR1,TABLE
         LAD   GR2,1,GR2
         CPA   GR2,=5
         JMI   LOOP
         ST    GR1,SUM
         RET
TABLE    DC    4,8,15,16,23
SUM      DS    1
         END
`;

export const bits = `; REST is to become X without its lowest four bits, LOW those four bits.
; REST を X の下位 4 ビットを除いた値に、LOW をその 4 ビットにする。
MAIN     START
         LD    GR1,X
         AND   GR1,=#000F
         ST    GR1,LOW
         LD    GR1,X
         ST    GR1,REST
         RET
X        DC    #12A7
LOW      DS    1
REST     DS    1
         END
`;

export const echo = `; Reads a line and prints it, with a greeting before it.
; 1 行読み、あいさつに続けて表示する。
MAIN     START
         IN    LINE,LEN
         OUT   LINE,LEN
         RET
HELLO    DC    'Hello'
FIVE     DC    5
LEN      DS    1
LINE     DS    256
         END
`;

export const call = `; FOUR is to become four times X: DOUBLE is called twice.
; FOUR を X の 4 倍にする。DOUBLE を 2 回呼び出す。
MAIN     START
         LD    GR1,X
         CALL  DOUBLE
         ST    GR1,FOUR
         RET
; GR1 becomes twice GR1.   GR1 を 2 倍にする。
DOUBLE   ADDA  GR1,GR1
         RET
X        DC    3
FOUR     DS    1
         END
`;

export const reverse = `; Reads a line and is to print it backwards.
; 1 行読み、逆順に表示する。
MAIN     START
         IN    LINE,LEN
         LAD   GR2,0
PUSHES   CPA   GR2,LEN
         JZE   TAKE
         LD    GR1,LINE,GR2
         PUSH  0,GR1
         LAD   GR2,1,GR2
         JUMP  PUSHES
TAKE     LAD   GR2,0
POPS     CPA   GR2,LEN
         JZE   SHOW
         POP   GR1
         LAD   GR2,1,GR2
         JUMP  POPS
SHOW     OUT   LINE,LEN
         RET
LEN      DS    1
LINE     DS    256
         END
`;
