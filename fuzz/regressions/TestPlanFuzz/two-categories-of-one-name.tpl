<?xml version="1.0" encoding="UTF-8"?>
<TestPlan Version="3.0.0">
    <Attributes Ident="11">
        <Category Name="Relay"><Attribute Name="Channel" Type="Integer">1</Attribute></Category>
        <Category Name="Relay"><Attribute Name="Channel" Type="String">A</Attribute></Category>
    </Attributes>
</TestPlan>
