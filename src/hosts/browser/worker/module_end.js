export default createOdoledger;
