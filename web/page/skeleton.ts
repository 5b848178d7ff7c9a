/// The text that a new program begins with.
export const skeleton = `MAIN     START

         RET
         END
`;
