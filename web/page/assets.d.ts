declare module "*.txt" {
  const text: string;
  export default text;
}
declare module "*.toml" {
  const text: string;
  export default text;
}
